#include "site/context.h"
