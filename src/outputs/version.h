// The version of this program, as its results state it.
#ifndef KELPBOX_OUTPUTS_VERSION_H_
#define KELPBOX_OUTPUTS_VERSION_H_

#include <string>

namespace Outputs {

// "0.1.0"
std::string version();

// The compiler that made the program: results repeat to the last bit on one build of it.
std::string compiler();

}  // namespace Outputs

#endif  // KELPBOX_OUTPUTS_VERSION_H_
