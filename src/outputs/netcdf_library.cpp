#include "outputs/netcdf_library.h"

#include <netcdf.h>

#include <system_error>

namespace Outputs {

std::mutex& netcdf_mutex() {
  static std::mutex mutex;
  return mutex;
}

std::string netcdf_reason(int status, int error) {
  // A positive status is an error of the system, in place of the one that occurred: "permission
  // denied" for every file that HDF5 could not make.
  if (status > 0 && error != 0) return std::generic_category().message(error);
  std::string text = nc_strerror(status);
  if (status == NC_EHDFERR && error != 0) {
    text += " (" + std::generic_category().message(error) + ")";
  }
  return text;
}

}  // namespace Outputs
