#include "synthesis/definition.h"
