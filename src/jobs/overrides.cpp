#include "jobs/overrides.h"
