#include "point/point_stats.h"

#include <algorithm>
#include <complex>
#include <utility>

#include "analysis/spectrum_stats.h"
#include "analysis/wave_list.h"
#include "base/data_set.h"
#include "base/units.h"
#include "maths/sample_count.h"
#include "point/two_d.h"

namespace Synthesis {

void point_stats(const Maths::FrontSet& fronts, Maths::TankRun& run, const PointSpec& point,
                 Base::Params& params) {
  Base::Params local;
  local.insert("x", point.x, "m");
  local.insert("y", point.y, "m");
  local.insert("rate", params.read("rate", Base::Category::frequency), "Hz");

  const std::uint64_t sums = sizeof(std::complex<double>) * Base::spectrum_size(point.samples) +
                             point_memory(fronts, point);
  require_point_memory(params, point, std::max(Maths::signal_memory(point.samples), sums));
  Base::Cvector surface;
  surface_at(surface, fronts, run, point);
  Base::DataSet record(std::move(surface), local);
  // Comes before the waves, because take_time discards the spectrum.
  Base::Params energy;
  Analysis::SpectrumStats(record).report(energy);
  Base::DataSet elevation(std::move(record).take_time(), local);
  Analysis::WaveList waves(elevation, true);
  if (is_regular(waves)) {
    report_regular(waves, params);
  } else {
    report_irregular(waves, params);
  }
  for (const auto& [name, result] : energy.entries()) {
    params.insert(name, result.value, result.units);
  }
}

}  // namespace Synthesis
