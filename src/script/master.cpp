#include "script/master.h"
