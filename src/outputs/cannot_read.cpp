#include "outputs/cannot_read.h"

#include <system_error>

namespace Outputs {

void cannot_read(const std::string& file, int error) {
  throw CannotRead{file + ": " + std::generic_category().message(error)};
}

}  // namespace Outputs
