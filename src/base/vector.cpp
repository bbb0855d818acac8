#include "base/vector.h"
