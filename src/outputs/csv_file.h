// A CSV file of numbers: comments, one line of heads, rows.
#ifndef KELPBOX_OUTPUTS_CSV_FILE_H_
#define KELPBOX_OUTPUTS_CSV_FILE_H_

#include <cstdint>
#include <string>
#include <vector>

#include "outputs/output_file.h"
#include "outputs/output_folder.h"

namespace Outputs {

// Numbers have the fewest digits that read back as the same double, whatever the locale. Every call
// may throw CannotWrite.
class CsvFile {
 public:
  CsvFile(OutputFolder& folder, const std::string& name);

  // A line that begins with "# ". Control characters become blanks.
  void comment(const std::string& text);
  void heads(const std::vector<std::string>& heads);
  // Adds a number to the row.
  void add(double value);
  void add(std::uint64_t value);
  void end_row();
  void close() { file_.close(); }

 private:
  OutputFile file_;
  bool in_row_ = false;
};

}  // namespace Outputs

#endif  // KELPBOX_OUTPUTS_CSV_FILE_H_
