#include "script/wrap.h"
