#include "outputs/write_run.h"
