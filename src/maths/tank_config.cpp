#include "maths/tank_config.h"
