#include "synthesis/single.h"
