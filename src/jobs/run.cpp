#include "jobs/run.h"
