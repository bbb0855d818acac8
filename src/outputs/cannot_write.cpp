#include "outputs/cannot_write.h"

#include <system_error>

namespace Outputs {

void cannot_write(const std::string& file, int error) {
  throw CannotWrite{file + ": " + std::generic_category().message(error)};
}

}  // namespace Outputs
