#include "base/params.h"
