#include "outputs/csv_reader.h"

#include <algorithm>
#include <cerrno>
#include <charconv>

#include "outputs/cannot_read.h"
#include "outputs/regular_file.h"

namespace Outputs {

CsvReader::CsvReader(const std::string& path, const std::string& shown) : shown_(shown) {
  require_regular_file(path, shown);
  errno = 0;
  in_.open(path, std::ios::binary);
  if (!in_.is_open()) cannot_read(shown_, errno);
  // Distinguishes a file that cannot be read from a line that does not fit into memory.
  in_.exceptions(std::ios_base::badbit);
  while (next_line()) {
    if (!line_.empty() && line_.front() == '#') continue;
    columns_ = static_cast<std::size_t>(std::count(line_.begin(), line_.end(), ',')) + 1;
    return;
  }
  throw CannotRead{shown_ + ": has no columns"};
}

bool CsvReader::next_line() {
  ++number_;
  try {
    return static_cast<bool>(std::getline(in_, line_));
  } catch (const std::ios_base::failure&) {
    cannot_read(shown_, EIO);
  }
}

void CsvReader::refuse(const std::string& why) const {
  throw CannotRead{shown_ + ":" + std::to_string(number_) + ": " + why};
}

bool CsvReader::next(std::vector<double>& row) {
  if (!next_line()) return false;
  row.resize(columns_);
  const char* at = line_.data();
  const char* const end = at + line_.size();
  for (std::size_t column = 0; column < columns_; ++column) {
    const std::from_chars_result read = std::from_chars(at, end, row[column]);
    if (read.ec != std::errc()) refuse("is not a row of " + std::to_string(columns_) + " numbers");
    at = read.ptr;
    const bool last = column + 1 == columns_;
    if (last ? at != end : (at == end || *at != ',')) {
      refuse("is not a row of " + std::to_string(columns_) + " numbers");
    }
    if (!last) ++at;
  }
  return true;
}

}  // namespace Outputs
