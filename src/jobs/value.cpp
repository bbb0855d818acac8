#include "jobs/value.h"
