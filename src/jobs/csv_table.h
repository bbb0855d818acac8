// Columns of numbers from a CSV file.
#ifndef KELPBOX_JOBS_CSV_TABLE_H_
#define KELPBOX_JOBS_CSV_TABLE_H_

#include <string>
#include <string_view>
#include <vector>

namespace Jobs {

struct CsvColumn {
  std::string head;   // the whole head, "eta [mm]"; empty in a file without heads
  std::string name;   // the head without its units: "eta"
  std::string units;  // "mm" of "eta [mm]", "eta (mm)" or "eta_mm"; empty if there are none
  std::vector<double> values;
};

struct CsvTable {
  std::vector<std::string> comments;  // the lines that begin with #, without it
  std::vector<CsvColumn> columns;     // all of one length, at least one value
};

// Separators are semicolons, commas, tabs or blanks. The first line that has one of them decides;
// if it has several kinds, then the first in this order. The first line that is not a comment is
// the head unless all of it is numbers. Empty lines and a byte order mark are ignored, and lines
// may end with CR LF. Throws std::string "<name>:<line>: ..." for a field that is not a finite
// number, and for a line with another number of fields; "<name>: ..." for a text without numbers.
CsvTable read_csv(std::string_view text, const std::string& name);

// A column by its head or name, or by its number from 1. Throws std::string with the columns that
// there are, and for a name that several columns have.
const CsvColumn& column_of(const CsvTable& table, const std::string& wanted);

}  // namespace Jobs

#endif  // KELPBOX_JOBS_CSV_TABLE_H_
