#include "script/print.h"
