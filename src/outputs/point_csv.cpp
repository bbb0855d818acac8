#include "outputs/point_csv.h"

#include <cstddef>

#include "outputs/csv_file.h"
#include "outputs/number_text.h"
#include "outputs/version.h"

namespace Outputs {
namespace {

void begin(CsvFile& file, const PointReport& report, const std::string& what) {
  file.comment("kelpbox " + version() + ": " + what + " at \"" + report.name + "\"");
  file.comment("x = " + number_text(report.x) + " m, y = " + number_text(report.y) + " m");
}

void write_elevation(CsvFile&& file, const PointReport& report, const PointWave& wave) {
  begin(file, report, "surface elevation over one repeat time");
  file.heads({"time [s]", "eta [m]"});
  for (std::size_t i = 0; i < wave.elevation.size(); ++i) {
    file.add(static_cast<double>(i) / report.rate);
    file.add(wave.elevation[i]);
    file.end_row();
  }
  file.close();
}

void write_spectrum(CsvFile&& file, const PointReport& report, const PointWave& wave) {
  begin(file, report, "spectrum");
  file.heads({"f [Hz]", "amplitude [m]", "S [m2/Hz]"});
  for (std::size_t h = 0; h < wave.amplitudes.size(); ++h) {
    file.add(static_cast<double>(h) / report.repeat);
    file.add(wave.amplitudes[h]);
    file.add(wave.density[h]);
    file.end_row();
  }
  file.close();
}

void write_directions(CsvFile&& file, const PointReport& report, const PointWave& wave) {
  begin(file, report, "share of the variance in each direction sector");
  file.comment("angle: middle of the sector, direction of travel, from +x towards +y");
  file.heads({"angle [rad]", "share"});
  for (std::size_t b = 0; b < wave.shares.size(); ++b) {
    file.add(static_cast<double>(b) * report.delta_angle);
    file.add(wave.shares[b]);
    file.end_row();
  }
  file.close();
}

}  // namespace

void write_point_csv(const PointReport& report, const PointWave& wave, const std::string& number,
                     OutputFolder& folder) {
  write_elevation(CsvFile(folder, "point_" + number + ".csv"), report, wave);
  write_spectrum(CsvFile(folder, "spectrum_" + number + ".csv"), report, wave);
  write_directions(CsvFile(folder, "directions_" + number + ".csv"), report, wave);
}

}  // namespace Outputs
