#include "outputs/output_folder.h"
