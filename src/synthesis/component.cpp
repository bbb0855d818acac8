#include "synthesis/component.h"
