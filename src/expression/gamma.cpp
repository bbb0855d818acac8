#include "expression/gamma.h"
