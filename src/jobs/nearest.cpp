#include "jobs/nearest.h"
