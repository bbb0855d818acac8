#include "maths/run_data.h"
