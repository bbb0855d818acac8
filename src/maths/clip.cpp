#include "maths/clip.h"
