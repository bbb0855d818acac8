// The head of a column of a CSV file: a name, and units if it has any.
#ifndef KELPBOX_JOBS_CSV_HEAD_H_
#define KELPBOX_JOBS_CSV_HEAD_H_

#include <string>
#include <string_view>
#include <vector>

#include "jobs/csv_table.h"

namespace Jobs::Csv {

// A column without values: "eta [mm]", "eta (mm)" and "eta_mm" are all "eta" in "mm". What follows
// an underscore counts as units only if the library knows them.
CsvColumn read_head(std::string_view head);

// The heads of a line. Quotes around a head are removed, and separators inside them do not count. A
// blank as separator does not part a name from units in brackets: "t [s] eta [mm]" has two heads.
std::vector<CsvColumn> read_heads(std::string_view line, char separator);

}  // namespace Jobs::Csv

#endif  // KELPBOX_JOBS_CSV_HEAD_H_
