#include "base/streams.h"

#include <iostream>

namespace Base {

std::ostream& progress() { return std::cout; }
std::ostream& script_faults() { return std::cerr; }

}  // namespace Base
