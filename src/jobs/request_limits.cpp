#include "jobs/request_limits.h"

#include <fmt/format.h>

#include <cmath>

namespace Jobs {

bool require_above_0(Preparation& p, const Part& part, const char* name, double value) {
  if (value > 0.0) return true;
  p.faults.push_back({fmt::format("`{}` must be above 0", name), span_of(part, name), ""});
  return false;
}

bool require_samples(Preparation& p, double rate, const Span& place) {
  if (!(rate > 0.0)) {
    p.faults.push_back({"`rate` must be above 0", place, ""});
    return false;
  }
  if (!p.has_grid) return true;
  constexpr double most_samples = 1 << 27;  // that the library computes
  const double repeat = p.run.experiment.repeat(p.run.definition).value();
  const double samples = std::floor(repeat * rate + 0.5);
  if (samples >= 1.0 && samples <= most_samples) return true;
  const std::string given = fmt::format("a rate of {:g} Hz gives ", rate);
  const std::string span = fmt::format(" in a repeat of {:g} s", repeat);
  if (samples < 1.0) {
    p.faults.push_back({given + "no sample" + span, place, ""});
  } else {
    p.faults.push_back({fmt::format("{}{:.3g} samples{}", given, samples, span), place,
                        fmt::format("at most {:.0f} samples can be computed", most_samples)});
  }
  return false;
}

bool lies_across_tank(Preparation& p, const Part& part, const std::string& key, double y) {
  if (!p.has_site) return true;
  // A site without side walls need not state its width.
  const Common::Tank& tank = p.run.experiment.tank();
  if (!(tank.max_y > tank.min_y) || (y >= tank.min_y && y <= tank.max_y)) return true;
  p.faults.push_back(
      {fmt::format("`{}` lies outside the tank, which reaches from {:g} to {:g} m across", key,
                   tank.min_y, tank.max_y),
       span_of(part, key), ""});
  return false;
}

}  // namespace Jobs
