#include "synthesis/bank_motion.h"
