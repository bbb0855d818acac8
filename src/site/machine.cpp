#include "site/machine.h"
