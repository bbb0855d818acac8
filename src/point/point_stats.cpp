#include "point/point_stats.h"

#include "analysis/spectrum_stats.h"
#include "analysis/wave_list.h"
#include "base/data_set.h"
#include "base/units.h"

namespace Synthesis {

void point_stats(const Maths::FrontSet& fronts, Maths::TankRun& run, const PointSpec& point,
                 Base::Params& params) {
  Base::Params local;
  local.insert("x", point.x, "m");
  local.insert("y", point.y, "m");
  local.insert("rate", params.read("rate", Base::Category::frequency), "Hz");

  Base::Cvector surface;
  surface_at(surface, fronts, run, point);
  Base::DataSet record(surface, local);
  Analysis::WaveList waves(record, true);
  if (is_regular(waves)) {
    report_regular(waves, params);
  } else {
    report_irregular(waves, params);
  }
  Analysis::SpectrumStats(record).report(params);
}

}  // namespace Synthesis
