#include "outputs/point_wave.h"

#include <cmath>

#include "base/params.h"
#include "outputs/library_call.h"
#include "point/two_d.h"

namespace Outputs {
namespace {

Base::Params place_of(const Jobs::PointRequest& request) {
  Base::Params params;
  params.insert("x", request.x, "m");
  params.insert("y", request.y, "m");
  params.insert("rate", request.rate, "Hz");
  return params;
}

std::string units_of(const Base::Quantity& quantity) {
  const std::string text = Base::units_text(quantity.units);
  return text.empty() ? "1" : text;
}

std::string title_of(const Jobs::Run& run, std::size_t point) {
  return "point \"" + run.points[point].name + "\"";
}

// What `after` has besides `before`.
std::vector<Statistic> added(const Base::Params& before, const Base::Params& after) {
  std::vector<Statistic> statistics;
  for (const auto& [name, quantity] : after.entries()) {
    if (!before.contains(name)) statistics.push_back({name, quantity.value, units_of(quantity)});
  }
  return statistics;
}

// The library has no statistics of fewer than six waves. That is a remark, and no failure.
void add_statistics(Jobs::Run& run, std::size_t point, PointReport& report) {
  const Base::Params place = place_of(run.points[point]);
  Base::Params results = place;
  try {
    library_call(run, title_of(run, point), run.job.points[point].part.span,
                 [&] { run.experiment.twod_stats(run.definition, results); });
    report.statistics = added(place, results);
  } catch (const Jobs::BadJob& failure) {
    const std::string& message = failure.faults.front().fault;
    if (message.find("Insufficient zero crossings") == std::string::npos) throw;
    report.remarks.push_back("no statistics, because there are fewer than six waves");
  }
}

}  // namespace

PointReport build_point(Jobs::Run& run, std::size_t point) {
  const Jobs::PointRequest& request = run.points[point];
  PointReport report;
  report.name = request.name;
  report.x = request.x;
  report.y = request.y;
  Base::Params params = place_of(request);
  params.insert("delta_angle", request.delta_angle, "rad");
  library_call(run, title_of(run, point), run.job.points[point].part.span,
               [&] { run.experiment.twod_build(run.definition, params); });
  report.rate = params.read("rate", Base::Category::frequency);
  report.delta_angle = params.read("delta_angle", Base::Category::angle);
  report.repeat = run.experiment.repeat(run.definition).value();
  report.remarks = comments_of(params);
  const std::vector<double>& elevation = point_wave(run).elevation;
  report.samples = elevation.size();
  if (!elevation.empty() && !std::isfinite(elevation.front())) {
    report.remarks.push_back("the elevation is NaN: a wave cannot reach this point");
  }
  add_statistics(run, point, report);
  return report;
}

PointWave point_wave(Jobs::Run& run) {
  const auto data = [&run](std::int32_t which) -> const std::vector<double>& {
    return run.experiment.twod_data(run.definition, which);
  };
  using Synthesis::TwoD;
  return {data(TwoD::time), data(TwoD::spectrum), data(TwoD::variance), data(TwoD::direction)};
}

}  // namespace Outputs
