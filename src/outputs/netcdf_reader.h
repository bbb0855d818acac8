// A NetCDF file of a run, to read from.
#ifndef KELPBOX_OUTPUTS_NETCDF_READER_H_
#define KELPBOX_OUTPUTS_NETCDF_READER_H_

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

namespace Outputs {

// Every call may throw CannotRead with the file's name, also for a variable that is not there.
class NetcdfReader {
 public:
  using Sizes = std::vector<std::size_t>;

  // `shown` names the file in messages.
  NetcdfReader(const std::string& path, const std::string& shown);
  ~NetcdfReader();
  NetcdfReader(const NetcdfReader&) = delete;
  NetcdfReader& operator=(const NetcdfReader&) = delete;

  // The number of a variable for later calls. Its lengths must be these.
  int variable(const std::string& name, const Sizes& shape);
  // The lengths of a variable of so many dimensions.
  Sizes shape(const std::string& name, std::size_t dimensions);
  double attribute(int variable, const std::string& name);

  // Compressed chunks are kept up to so many bytes, for a variable that is read piece by piece.
  void keep_chunks(int variable, std::size_t bytes);

  // Reads a stretch of a variable.
  void read(int variable, const Sizes& start, const Sizes& count, double* values);
  void read(int variable, const Sizes& start, const Sizes& count, std::int16_t* values);

 private:
  void require(int status);
  int find(const std::string& name);

  std::string shown_;
  std::uintmax_t size_ = 0;  // bytes of the file
  int id_ = -1;
};

}  // namespace Outputs

#endif  // KELPBOX_OUTPUTS_NETCDF_READER_H_
