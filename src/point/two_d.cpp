#include "point/two_d.h"

#include <algorithm>
#include <complex>
#include <cstddef>
#include <cstdint>
#include <string>
#include <utility>

#include "base/compose.h"
#include "base/constants.h"
#include "base/data_set.h"
#include "base/memory.h"
#include "base/units.h"
#include "maths/rounding.h"
#include "maths/sample_count.h"

namespace Synthesis {
namespace {

std::int32_t sector_count(double width) {
  constexpr double least_width = 1e-6;  // radians
  if (width <= least_width) throw std::string("Value of delta_angle too small");
  const std::int32_t sectors = Maths::round_to_i32(Base::TwoPi / width);
  if (sectors < 0) {
    throw Base::compose("delta_angle::", width, " rad gives no usable number of direction sectors");
  }
  return sectors;
}

}  // namespace

PointSpec fit_point(Base::Params& params, const Maths::RunData& run) {
  const double repeat = run.value();
  PointSpec point;
  point.samples = Maths::sample_count(repeat, params.read("rate", Base::Category::frequency));
  constexpr double tolerance = 0.01;
  params.set_checked("rate", point.samples / repeat, Base::Category::frequency, tolerance);
  point.x = params.read("x", Base::Category::length);
  point.y = params.read("y", Base::Category::length);
  return point;
}

void require_point_memory(const Base::Params& params, const PointSpec& point, std::uint64_t bytes) {
  Base::require_memory(
      bytes, Base::compose("rate::", params.read("rate", Base::Category::frequency), " Hz gives ",
                           point.samples, " samples at the point, which"));
}

void TwoD::build(const Maths::FrontSet& fronts, Maths::TankRun& run, const PointSpec& point,
                 Base::Params& params) {
  // Directions, amplitudes and variance have one number for each harmonic.
  const std::uint64_t bytes =
      Maths::signal_memory(point.samples) + 3 * sizeof(double) * Base::spectrum_size(point.samples);
  const std::uint64_t held =
      sizeof(double) * (time_.data.size() + spectrum_.data.size() + variance_.data.size());
  // The earlier results are freed once the surface and the directions exist.
  const std::uint64_t before_release =
      (sizeof(std::complex<double>) + sizeof(double)) * Base::spectrum_size(point.samples) +
      point_memory(fronts, point);
  require_point_memory(params, point, std::max(before_release, bytes - std::min(bytes, held)));
  Base::Cvector surface;
  Base::Vector directions;
  wave_at(surface, directions, fronts, run, point);

  Base::DataSet record(std::move(surface), params);
  // Frees the results of the build before. Assigning a temporary releases the memory; a copy of an
  // empty vector would keep it.
  for (Base::Vector* data : {&time_, &spectrum_, &variance_}) *data = Base::Vector();
  record.spectrum(spectrum_);
  record.variance(variance_);
  time_ = std::move(record).take_time();

  const std::int32_t sectors = sector_count(params.read("delta_angle", Base::Category::angle));
  const double step = Base::TwoPi / sectors;
  params.set("delta_angle", step, Base::Category::angle);
  share_out(directions.data, sectors, step);
}

void TwoD::share_out(const std::vector<double>& directions, std::int32_t sectors, double step) {
  constexpr double least_sum = 1e-6;  // m2s; below it there is no wave to share out
  direction_.assign(static_cast<std::size_t>(sectors), 0.0);
  double sum = 0.0;
  for (std::size_t i = 1; i < variance_.data.size(); ++i) {
    // Most harmonics have no fronts, and the direction 0.
    std::int32_t sector = directions[i] == 0.0 ? 0 : Maths::round_to_i32(directions[i] / step);
    if (sector < 0) sector += sectors;
    const auto index = static_cast<std::size_t>(sector);
    if (index >= direction_.size()) throw std::string("invalid vector<T> subscript");
    sum = sum + variance_.data[i];
    direction_[index] = direction_[index] + variance_.data[i];
  }
  if (sum > least_sum) {
    for (double& share : direction_) share *= 1 / sum;
  }
}

const std::vector<double>& TwoD::data(std::int32_t type) const {
  switch (type) {
    case time:
      return time_.data;
    case spectrum:
      return spectrum_.data;
    case variance:
      return variance_.data;
    case direction:
      return direction_;
    default:
      throw std::string("Unknown option ot twod_data");
  }
}

}  // namespace Synthesis
