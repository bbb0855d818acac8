#include "jobs/ready_sea.h"
