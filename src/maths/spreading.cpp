#include "maths/spreading.h"
