#include "jobs/judgement.h"
