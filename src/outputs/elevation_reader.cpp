#include "outputs/elevation_reader.h"

#include <string>

#include "outputs/cannot_read.h"
#include "outputs/csv_reader.h"
#include "outputs/netcdf_reader.h"

namespace Outputs {
namespace {

std::vector<double> row_of_netcdf(const PageSource& source, const std::string& name,
                                  std::size_t row, std::size_t rows, std::size_t samples) {
  NetcdfReader file(source.path(name), source.shown(name));
  const int eta = file.variable("eta", {rows, samples});
  std::vector<double> values(samples);
  file.read(eta, {row, 0}, {1, samples}, values.data());
  return values;
}

std::vector<double> column_of_csv(const PageSource& source, const std::string& name,
                                  std::size_t samples) {
  CsvReader file(source.path(name), source.shown(name));
  if (file.columns() != 2) throw CannotRead{source.shown(name) + ": has not two columns"};
  std::vector<double> values;
  std::vector<double> row;
  while (file.next(row)) values.push_back(row[1]);
  if (values.size() == samples) return values;
  throw CannotRead{source.shown(name) + ": has " + std::to_string(values.size()) +
                   " samples, but summary.json says " + std::to_string(samples)};
}

}  // namespace

std::optional<std::vector<double>> read_elevation(const PageSource& source, std::size_t index,
                                                  std::size_t points, std::size_t samples) {
  const std::string own = "point_" + std::to_string(index + 1);
  if (source.has("points.nc")) return row_of_netcdf(source, "points.nc", index, points, samples);
  if (source.has(own + ".nc")) return row_of_netcdf(source, own + ".nc", 0, 1, samples);
  if (source.has(own + ".csv")) return column_of_csv(source, own + ".csv", samples);
  return std::nullopt;
}

}  // namespace Outputs
