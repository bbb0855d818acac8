#include "maths/tank_run.h"
