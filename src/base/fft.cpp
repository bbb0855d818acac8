#include "base/fft.h"
