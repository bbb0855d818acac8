#include "script/list.h"
