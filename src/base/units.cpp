#include "base/units.h"
