#include "synthesis/time_exp.h"
