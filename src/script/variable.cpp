#include "script/variable.h"
