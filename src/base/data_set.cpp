#include "base/data_set.h"
