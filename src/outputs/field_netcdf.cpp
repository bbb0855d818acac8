#include "outputs/field_netcdf.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <limits>

#include "outputs/cf_attributes.h"
#include "outputs/netcdf_file.h"
#include "outputs/number_text.h"

namespace Outputs {
namespace {

constexpr double full_scale = 4.0;  // m, of the largest code
constexpr double largest_code = 32767.0;

// The lengths of a chunk. Whole rows of chunks are written at once.
struct Chunk {
  std::size_t frames;
  std::size_t rows;
  std::size_t columns;
};

// Parts of 24 to 48 points, but at most 8 parts: both a frame and the series of a point are then
// read in a few chunks.
std::size_t part_of(std::size_t count) {
  const std::size_t parts = std::clamp<std::size_t>(count / 24, 1, 8);
  return (count + parts - 1) / parts;
}

Chunk chunk_of(const FieldFrames& field) {
  return {std::min<std::size_t>(field.frames(), 32), part_of(field.y().count),
          part_of(field.x().count)};
}

struct FieldVariables {
  TimeAxis time;
  int x = 0;
  int y = 0;
  int eta = 0;
};

FieldVariables define(NetcdfFile& file, const FieldFrames& field, const Chunk& chunk) {
  FieldVariables made;
  made.time = define_time(file, field.frames(), field.rate());
  const int along_y = file.dimension("y", field.y().count);
  const int along_x = file.dimension("x", field.x().count);
  made.y = position_variable(file, "y", "Y", along_y);
  made.x = position_variable(file, "x", "X", along_x);
  made.eta = file.variable("eta", NetcdfType::int16, {made.time.dimension, along_y, along_x});
  describe(file, made.eta, "surface elevation", "m");
  file.attribute(made.eta, "standard_name", "sea_surface_height_above_mean_sea_level");
  file.attribute(made.eta, "scale_factor", static_cast<float>(full_scale / largest_code));
  file.attribute(made.eta, "comment",
                 std::string("Above the still water level. The integers are the frames of the "
                             "program, in steps of 4 m / 32767 for every run, so that all runs "
                             "have one scale. A height beyond 4 m in either direction appears 8 m "
                             "lower or higher."));
  file.fill_value(made.eta, std::numeric_limits<std::int16_t>::min());
  file.compress(made.eta, {chunk.frames, chunk.rows, chunk.columns});
  return made;
}

void put_axis(NetcdfFile& file, int variable, const FieldAxis& axis) {
  std::vector<double> places(axis.count);
  for (std::size_t i = 0; i < axis.count; ++i) {
    places[i] = axis.from + static_cast<double>(i) * axis.step;
  }
  file.put(variable, places);
}

struct Extremes {
  std::int16_t lowest = 0;
  std::int16_t highest = 0;
};

// Copies some rows of some frames from the order of the library, (x, y), into (time, y, x).
void transpose(const FieldFrames& field, std::size_t first_frame, std::size_t frames,
               std::size_t first_row, std::size_t rows, std::vector<std::int16_t>& out,
               Extremes& extremes) {
  const std::size_t columns = field.x().count;
  out.resize(frames * rows * columns);
  for (std::size_t t = 0; t < frames; ++t) {
    const std::int16_t* frame = field.frame(first_frame + t).data() + first_row;
    std::int16_t* to = out.data() + t * rows * columns;
    for (std::size_t x = 0; x < columns; ++x) {
      const std::int16_t* column = frame + x * field.y().count;
      for (std::size_t y = 0; y < rows; ++y) to[y * columns + x] = column[y];
    }
  }
  const auto ends = std::minmax_element(out.begin(), out.end());
  extremes.lowest = std::min(extremes.lowest, *ends.first);
  extremes.highest = std::max(extremes.highest, *ends.second);
}

Extremes put_frames(NetcdfFile& file, int eta, const FieldFrames& field, const Chunk& chunk,
                    const Progress& progress) {
  const Step step(progress, "field.nc");
  const std::size_t all_rows = field.y().count;
  Extremes extremes;
  std::vector<std::int16_t> block;
  for (std::size_t t = 0; t < field.frames(); t += chunk.frames) {
    const std::size_t frames = std::min(chunk.frames, field.frames() - t);
    for (std::size_t y = 0; y < all_rows; y += chunk.rows) {
      step.done(t * all_rows + y * frames, field.frames() * all_rows);
      const std::size_t rows = std::min(chunk.rows, all_rows - y);
      transpose(field, t, frames, y, rows, block, extremes);
      file.put(eta, {t, y, 0}, {frames, rows, field.x().count}, block.data());
    }
  }
  step.done(1, 1);
  return extremes;
}

double height_of(std::int16_t code) { return code * full_scale / largest_code; }

// Heights that wrapped cannot be recognised. But a surface that passes 4 m is close to it
// somewhere.
void warn_of_wrapping(FieldReport& report) {
  constexpr double close = 0.9 * full_scale;
  const double farthest = std::max(-report.lowest, report.highest);
  if (farthest < close) return;
  report.remarks.push_back("the surface comes to " + number_text(std::round(farthest * 100) / 100) +
                           " m; heights beyond 4 m appear 8 m lower or higher in field.nc");
}

}  // namespace

FieldReport write_field(Jobs::Run& run, OutputFolder& folder, const Progress& progress) {
  const FieldFrames field(run, progress);
  const Chunk chunk = chunk_of(field);
  NetcdfFile file(folder, "field.nc");
  put_file_attributes(file, run,
                      "The wave field of one repeat time. x is along the tank from the paddle "
                      "line, y across it.");
  const FieldVariables variables = define(file, field, chunk);
  file.end_definitions();
  put_times(file, variables.time);
  put_axis(file, variables.x, field.x());
  put_axis(file, variables.y, field.y());
  const Extremes extremes = put_frames(file, variables.eta, field, chunk, progress);

  FieldReport report{field.rate(), field.frames(), field.x(), field.y(), 0.0, 0.0, field.remarks()};
  report.lowest = height_of(extremes.lowest);
  report.highest = height_of(extremes.highest);
  file.range(variables.eta, static_cast<float>(report.lowest), static_cast<float>(report.highest));
  file.close();
  warn_of_wrapping(report);
  return report;
}

}  // namespace Outputs
