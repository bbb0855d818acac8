#include "site/paddles.h"
