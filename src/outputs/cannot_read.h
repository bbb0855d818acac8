// The failure of everything that reads results.
#ifndef KELPBOX_OUTPUTS_CANNOT_READ_H_
#define KELPBOX_OUTPUTS_CANNOT_READ_H_

#include <string>

namespace Outputs {

// Thrown when results cannot be read, or are not what the run wrote: "storm.out/drive.nc: NetCDF:
// Unknown file format".
struct CannotRead {
  std::string message;
};

// Throws "<file>: <the system's message>" for a value of errno.
[[noreturn]] void cannot_read(const std::string& file, int error);

}  // namespace Outputs

#endif  // KELPBOX_OUTPUTS_CANNOT_READ_H_
