#include "maths/wavemaker_ratio.h"
