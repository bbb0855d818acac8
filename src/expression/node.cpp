#include "expression/node.h"
