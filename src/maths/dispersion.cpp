#include "maths/dispersion.h"
