#include "jobs/failure.h"
