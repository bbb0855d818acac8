#include "expression/function.h"
