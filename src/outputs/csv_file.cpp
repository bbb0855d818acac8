#include "outputs/csv_file.h"

#include <charconv>

#include "outputs/plain_text.h"

namespace Outputs {
namespace {

// The longest shortest double, "-2.2250738585072014e-308", and a comma.
constexpr std::size_t longest_number = 32;

template <typename Number>
void put(OutputFile& file, bool& in_row, Number value) {
  char* at = file.room(longest_number);
  char* const end = at + longest_number;
  if (in_row) *at++ = ',';
  in_row = true;
  file.wrote(std::to_chars(at, end, value).ptr);
}

}  // namespace

CsvFile::CsvFile(OutputFolder& folder, const std::string& name)
    : file_(folder.path_of(name), folder.shown(name)) {}

void CsvFile::comment(const std::string& text) { file_.write("# " + plain_text(text) + "\n"); }

void CsvFile::heads(const std::vector<std::string>& heads) {
  std::string line;
  for (const std::string& head : heads) line += (line.empty() ? "" : ",") + head;
  file_.write(line + "\n");
}

void CsvFile::add(double value) { put(file_, in_row_, value); }

void CsvFile::add(std::uint64_t value) { put(file_, in_row_, value); }

void CsvFile::end_row() {
  char* at = file_.room(1);
  *at++ = '\n';
  file_.wrote(at);
  in_row_ = false;
}

}  // namespace Outputs
