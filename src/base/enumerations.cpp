#include "base/enumerations.h"
