#include "jobs/read_toml.h"
