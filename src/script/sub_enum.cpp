#include "script/sub_enum.h"
