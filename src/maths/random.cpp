#include "maths/random.h"
