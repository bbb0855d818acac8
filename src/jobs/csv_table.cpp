#include "jobs/csv_table.h"
