#include "synthesis/set_fronts.h"
