#include "site/tank.h"
