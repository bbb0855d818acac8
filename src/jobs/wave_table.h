// The CSV file of a wave.
#ifndef KELPBOX_JOBS_WAVE_TABLE_H_
#define KELPBOX_JOBS_WAVE_TABLE_H_

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

#include "base/units.h"
#include "jobs/csv_table.h"
#include "jobs/preparation.h"
#include "jobs/run.h"

namespace Jobs {

struct TableFile {
  const InputFile* input = nullptr;
  std::string given;  // the path as the job has it
  Span place;
  CsvTable table;
};

// Adds a fault at the file's place in the job.
void add_fault(Preparation& p, const TableFile& file, const std::string& fault,
               const std::string& label = "");

// The file that the part names, which stays valid until the next file is read. Nothing after a
// fault, as for the next two.
std::optional<TableFile> read_table(Preparation& p, const Part& part);

// The values of a column in the base unit of the category. `units_text` must not be empty;
// `example` is for the label: "mm".
std::optional<std::vector<double>> in_base_units(Preparation& p, const TableFile& file,
                                                 const CsvColumn& column,
                                                 const std::string& units_text,
                                                 Base::UnitCategory category, const char* example);
// The same for a column by its name, with the units of its head.
std::optional<std::vector<double>> named_column(Preparation& p, const TableFile& file,
                                                const char* name, Base::UnitCategory category,
                                                const char* example);

bool has_column(const CsvTable& table, const std::string& name);

// "fronts.csv:7" for a row of the table.
std::string line_of(const TableFile& file, std::size_t row);

}  // namespace Jobs

#endif  // KELPBOX_JOBS_WAVE_TABLE_H_
