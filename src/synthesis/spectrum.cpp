#include "synthesis/spectrum.h"
