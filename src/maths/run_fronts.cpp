#include "maths/run_fronts.h"
