// What writing and reading of NetCDF files share: one call of the library at a time, and its
// messages.
#ifndef KELPBOX_OUTPUTS_NETCDF_LIBRARY_H_
#define KELPBOX_OUTPUTS_NETCDF_LIBRARY_H_

#include <cerrno>
#include <mutex>
#include <string>

namespace Outputs {

// The library is not safe for threads.
std::mutex& netcdf_mutex();

// Calls the library alone and with a clear errno.
template <typename Call>
int netcdf_alone(Call call) {
  const std::scoped_lock lock(netcdf_mutex());
  errno = 0;
  return call();
}

// The message of a status of the library. It reports every failure of the disk as "HDF error": the
// system's reason says more.
std::string netcdf_reason(int status, int error);

}  // namespace Outputs

#endif  // KELPBOX_OUTPUTS_NETCDF_LIBRARY_H_
