#include "script/log.h"
