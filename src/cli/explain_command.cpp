#include "cli/commands.h"
