// A CSV file of a run, to read from row by row.
#ifndef KELPBOX_OUTPUTS_CSV_READER_H_
#define KELPBOX_OUTPUTS_CSV_READER_H_

#include <cstddef>
#include <fstream>
#include <string>
#include <vector>

namespace Outputs {

// Comments, one line of heads, rows of numbers: what CsvFile writes. Files may be larger than
// memory. Every call may throw CannotRead with the file's name.
class CsvReader {
 public:
  CsvReader(const std::string& path, const std::string& shown);

  std::size_t columns() const { return columns_; }
  // The numbers of the next row; false after the last one.
  bool next(std::vector<double>& row);

 private:
  bool next_line();
  [[noreturn]] void refuse(const std::string& why) const;

  std::ifstream in_;
  std::string shown_;
  std::string line_;
  std::size_t number_ = 0;
  std::size_t columns_ = 0;
};

}  // namespace Outputs

#endif  // KELPBOX_OUTPUTS_CSV_READER_H_
