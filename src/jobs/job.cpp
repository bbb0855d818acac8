#include "jobs/job.h"
