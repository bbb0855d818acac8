#include "base/unit_table.h"
