#include "synthesis/piecewise.h"
