#include "maths/front_set.h"
