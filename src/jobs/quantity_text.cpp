#include "jobs/quantity_text.h"
