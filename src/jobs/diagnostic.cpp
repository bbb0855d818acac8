#include "jobs/diagnostic.h"
