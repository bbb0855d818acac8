#include "script/serialise.h"
