#include "jobs/wave_table.h"

#include <fmt/format.h>

#include <algorithm>
#include <cmath>

#include "jobs/record_samples.h"

namespace Jobs {

void add_fault(Preparation& p, const TableFile& file, const std::string& fault,
               const std::string& label) {
  p.faults.push_back({fault, file.place, label});
}

std::optional<TableFile> read_table(Preparation& p, const Part& part) {
  const auto index = read_part_file(p, part);
  if (!index) return std::nullopt;
  TableFile file;
  file.input = &p.run.inputs[*index];
  file.given = part.parameters.find("file")->text;
  file.place = span_of(part, "file");
  try {
    file.table = read_csv(file.input->text, file.given);
  } catch (const std::string& message) {
    add_fault(p, file, message);
    return std::nullopt;
  }
  return file;
}

std::optional<std::vector<double>> in_base_units(Preparation& p, const TableFile& file,
                                                 const CsvColumn& column,
                                                 const std::string& units_text,
                                                 Base::UnitCategory category, const char* example) {
  const Base::Units wanted = Base::default_units(category);
  if (units_text.empty()) {
    add_fault(p, file, fmt::format("column `{}` of {} has no units", column.name, file.given),
              fmt::format("write `{} [{}]` in its head", column.name, example));
    return std::nullopt;
  }
  double factor = 0.0;
  try {
    const Base::Units units = Base::resolve_units(units_text);
    factor = Base::factor(units, wanted);
  } catch (const std::string& message) {
    add_fault(p, file, fmt::format("column `{}` of {}: {}", column.name, file.given, message),
              fmt::format("such as `{} [{}]`", column.name, example));
    return std::nullopt;
  }
  std::vector<double> values = column.values;
  for (double& value : values) {
    value *= factor;
    if (std::isfinite(value)) continue;
    add_fault(
        p, file,
        fmt::format("column `{}` of {} has values that are too large", column.name, file.given));
    return std::nullopt;
  }
  return values;
}

std::optional<std::vector<double>> named_column(Preparation& p, const TableFile& file,
                                                const char* name, Base::UnitCategory category,
                                                const char* example) {
  try {
    const CsvColumn& column = column_of(file.table, name);
    return in_base_units(p, file, column, column.units, category, example);
  } catch (const std::string& message) {
    add_fault(p, file, message, fmt::format("write `{} [{}]` in its head", name, example));
    return std::nullopt;
  }
}

bool has_column(const CsvTable& table, const std::string& name) {
  for (const CsvColumn& column : table.columns) {
    if (column.name == name) return true;
  }
  return false;
}

std::string line_of(const TableFile& file, std::size_t row) {
  return fmt::format("{}:{}", file.given, line_of_row(file.input->text, file.table, row));
}

}  // namespace Jobs
