#include "jobs/captured_lines.h"
