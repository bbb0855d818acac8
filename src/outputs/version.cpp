#include "outputs/version.h"

namespace Outputs {

std::string version() { return KELPBOX_VERSION; }

std::string compiler() { return KELPBOX_COMPILER; }

}  // namespace Outputs
