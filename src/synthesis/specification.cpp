#include "synthesis/specification.h"
