#include "script/stack.h"
