#include "maths/dalrymple.h"
