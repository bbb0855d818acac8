#include "outputs/points_netcdf.h"

#include <algorithm>
#include <string>

#include "outputs/cf_attributes.h"
#include "outputs/plain_text.h"

namespace Outputs {
namespace {

struct Stations {
  int dimension = 0;
  int name = 0;
  int x = 0;
  int y = 0;
};

Stations define_stations(NetcdfFile& file, std::size_t count) {
  Stations stations;
  stations.dimension = file.dimension("station", count);
  stations.x = position_variable(file, "x", "X", stations.dimension);
  stations.y = position_variable(file, "y", "Y", stations.dimension);
  stations.name = file.variable("station_name", NetcdfType::text, {stations.dimension});
  file.attribute(stations.name, "long_name", "name of the point");
  return stations;
}

void put_stations(NetcdfFile& file, const Stations& stations, const Jobs::PointRequest* points,
                  std::size_t count) {
  std::vector<std::string> names;
  std::vector<double> x;
  std::vector<double> y;
  for (const Jobs::PointRequest* point = points; point != points + count; ++point) {
    names.push_back(plain_text(point->name));
    x.push_back(point->x);
    y.push_back(point->y);
  }
  file.put(stations.name, names);
  file.put(stations.x, x);
  file.put(stations.y, y);
}

int define_result(NetcdfFile& file, const std::string& name, const Stations& stations, int along,
                  const std::string& meaning, const std::string& units) {
  const int variable = file.variable(name, NetcdfType::real64, {stations.dimension, along});
  describe(file, variable, meaning, units);
  file.attribute(variable, "coordinates", "x y station_name");
  return variable;
}

// A coordinate from 0 in equal steps.
int define_axis(NetcdfFile& file, const std::string& name, std::size_t count,
                const std::string& meaning, const std::string& units, int& dimension) {
  dimension = file.dimension(name, count);
  const int variable = file.variable(name, NetcdfType::real64, {dimension});
  describe(file, variable, meaning, units);
  return variable;
}

void put_row(NetcdfFile& file, int variable, std::size_t row, const std::vector<double>& values) {
  file.put(variable, {row, 0}, {1, values.size()}, values.data());
}

}  // namespace

bool share_axes(const std::vector<Jobs::PointRequest>& points) {
  return std::all_of(points.begin(), points.end(), [&points](const Jobs::PointRequest& point) {
    return point.rate == points.front().rate && point.delta_angle == points.front().delta_angle;
  });
}

PointsNetcdf::PointsNetcdf(Jobs::Run& run, OutputFolder& folder, std::size_t first,
                           std::size_t count)
    : run_(run), folder_(folder), first_(first), count_(count) {}

void PointsNetcdf::define_elevations(const PointReport& report) {
  const bool all = share_axes(run_.points);
  elevations_ = std::make_unique<NetcdfFile>(
      folder_, all ? "points.nc" : "point_" + std::to_string(first_ + 1) + ".nc");
  NetcdfFile& file = *elevations_;
  put_file_attributes(file, run_, "Surface elevations of one repeat time.");
  file.attribute(NetcdfFile::global, "featureType", "timeSeries");
  const Stations stations = define_stations(file, count_);
  file.attribute(stations.name, "cf_role", "timeseries_id");
  const TimeAxis time = define_time(file, report.samples, report.rate);
  eta_ = define_result(file, "eta", stations, time.dimension, "surface elevation", "m");
  file.attribute(eta_, "standard_name", "sea_surface_height_above_mean_sea_level");
  file.attribute(eta_, "comment", "above the still water level");
  file.end_definitions();
  put_stations(file, stations, &run_.points[first_], count_);
  put_times(file, time);
}

void PointsNetcdf::define_spectra(const PointReport& report, const PointWave& wave) {
  const bool all = share_axes(run_.points);
  spectra_ = std::make_unique<NetcdfFile>(
      folder_, all ? "spectra.nc" : "spectrum_" + std::to_string(first_ + 1) + ".nc");
  NetcdfFile& file = *spectra_;
  put_file_attributes(file, run_,
                      "Directions are those that waves travel towards, from +x towards +y.");
  const Stations stations = define_stations(file, count_);
  int along_frequency = 0;
  int along_direction = 0;
  const int frequency =
      define_axis(file, "frequency", wave.density.size(), "frequency", "Hz", along_frequency);
  file.attribute(frequency, "standard_name", "wave_frequency");
  const int direction = define_axis(file, "direction", wave.shares.size(),
                                    "middle of the direction sector, direction of travel from +x "
                                    "towards +y",
                                    "rad", along_direction);
  density_ = define_result(file, "ef", stations, along_frequency, "variance density", "m2 s");
  file.attribute(density_, "standard_name", "sea_surface_wave_variance_spectral_density");
  amplitude_ =
      define_result(file, "amplitude", stations, along_frequency, "amplitude of the harmonic", "m");
  share_ = define_result(file, "share", stations, along_direction,
                         "share of the variance in the direction sector", "1");
  file.end_definitions();

  std::vector<double> steps(wave.density.size());
  for (std::size_t h = 0; h < steps.size(); ++h) steps[h] = static_cast<double>(h) / report.repeat;
  file.put(frequency, steps);
  steps.resize(wave.shares.size());
  for (std::size_t b = 0; b < steps.size(); ++b) {
    steps[b] = static_cast<double>(b) * report.delta_angle;
  }
  file.put(direction, steps);
  put_stations(file, stations, &run_.points[first_], count_);
}

void PointsNetcdf::put(std::size_t point, const PointReport& report, const PointWave& wave) {
  if (!elevations_) {
    define_elevations(report);
    define_spectra(report, wave);
  }
  const std::size_t row = point - first_;
  put_row(*elevations_, eta_, row, wave.elevation);
  put_row(*spectra_, amplitude_, row, wave.amplitudes);
  put_row(*spectra_, density_, row, wave.density);
  put_row(*spectra_, share_, row, wave.shares);
}

void PointsNetcdf::close() {
  elevations_->close();
  spectra_->close();
}

}  // namespace Outputs
