// A NetCDF-4 file: dimensions and variables are defined first, then values are written.
//
// Only the three .cpp files netcdf_*.cpp know the NetCDF library.
#ifndef KELPBOX_OUTPUTS_NETCDF_FILE_H_
#define KELPBOX_OUTPUTS_NETCDF_FILE_H_

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

#include "outputs/output_folder.h"

namespace Outputs {

enum class NetcdfType { text, int16, int32, real64 };

// Every call may throw CannotWrite with the file's name and the message of the library. Texts must
// be plain_text. Calls of all files are serialised: the library is not safe for threads.
class NetcdfFile {
 public:
  // In place of a variable, for attributes of the file.
  static constexpr int global = -1;
  using Sizes = std::vector<std::size_t>;

  NetcdfFile(OutputFolder& folder, const std::string& name);
  // Closes the file without checking it: a finished file has been closed before. A file that could
  // not be written stays open until the process ends: the library may crash when it closes one.
  ~NetcdfFile();
  NetcdfFile(const NetcdfFile&) = delete;
  NetcdfFile& operator=(const NetcdfFile&) = delete;

  // Each returns a number for later calls.
  int dimension(const std::string& name, std::size_t length);
  int variable(const std::string& name, NetcdfType type, const std::vector<int>& dimensions);

  void attribute(int variable, const std::string& name, const std::string& text);
  void attribute(int variable, const std::string& name, double value);
  void attribute(int variable, const std::string& name, float value);
  // "actual_range". May be called after end_definitions.
  void range(int variable, float low, float high);
  void fill_value(int variable, std::int16_t value);
  // Compresses the variable in chunks of these lengths (deflate 1 after shuffle: higher levels take
  // more time and hardly less space). Each chunk must be written once and whole.
  void compress(int variable, const Sizes& chunk);
  void end_definitions();

  // Writes a stretch of a variable.
  void put(int variable, const Sizes& start, const Sizes& count, const double* values);
  void put(int variable, const Sizes& start, const Sizes& count, const std::int16_t* values);
  // Writes a whole variable of one dimension.
  void put(int variable, const std::vector<double>& values);
  void put(int variable, const std::vector<std::int32_t>& values);
  void put(int variable, const std::vector<std::string>& values);

  // Writes the file to the disk first, so that nothing is left that could fail in the library.
  void close();

 private:
  void require(int status);

  std::string path_;
  std::string shown_;
  int id_ = -1;
};

}  // namespace Outputs

#endif  // KELPBOX_OUTPUTS_NETCDF_FILE_H_
