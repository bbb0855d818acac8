#include "base/quantity.h"
