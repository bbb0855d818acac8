#include "synthesis/time_series.h"
