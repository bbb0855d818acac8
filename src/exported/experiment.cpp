#include "exported/experiment.h"
