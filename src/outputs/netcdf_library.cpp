#include "outputs/netcdf_library.h"

#include <netcdf.h>

#include <system_error>

namespace Outputs {

std::mutex& netcdf_mutex() {
  static std::mutex mutex;
  return mutex;
}

std::string netcdf_reason(int status, int error) {
  std::string text = nc_strerror(status);
  if (status == NC_EHDFERR && error != 0) {
    text += " (" + std::generic_category().message(error) + ")";
  }
  return text;
}

}  // namespace Outputs
