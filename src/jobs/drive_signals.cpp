#include "jobs/drive_signals.h"
