// The failure of everything that writes results.
#ifndef KELPBOX_OUTPUTS_CANNOT_WRITE_H_
#define KELPBOX_OUTPUTS_CANNOT_WRITE_H_

#include <string>

namespace Outputs {

// Thrown when results cannot be written: "storm.out/drive.nc: No space left on device".
struct CannotWrite {
  std::string message;
};

// Throws "<file>: <the system's message>" for a value of errno.
[[noreturn]] void cannot_write(const std::string& file, int error);

}  // namespace Outputs

#endif  // KELPBOX_OUTPUTS_CANNOT_WRITE_H_
