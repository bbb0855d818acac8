#include "jobs/ready_parts.h"

#include <cmath>
#include <utility>

#include "base/compose.h"

namespace Jobs::Ready {

ReadyParameter number(std::string name, std::string units, std::string meaning) {
  ReadyParameter parameter;
  parameter.name = std::move(name);
  parameter.units = std::move(units);
  parameter.meaning = std::move(meaning);
  return parameter;
}

ReadyParameter positive(std::string name, std::string units, std::string meaning) {
  ReadyParameter parameter = number(std::move(name), std::move(units), std::move(meaning));
  parameter.above = 0.0;
  return parameter;
}

ReadyParameter significant_height() {
  return positive("hs", "m", "significant height, four standard deviations of the surface");
}

ReadyParameter peak_period() { return positive("tp", "s", "period of the peak"); }

ReadyParameter gravity() { return positive("g", "m/s2", "gravity at the site"); }

std::vector<ReadyParameter> with_limits(std::vector<ReadyParameter> parameters) {
  ReadyParameter low = number("f_min", "Hz", "lowest frequency made");
  low.otherwise = "the site's lowest";
  low.least = 0.0;
  parameters.push_back(low);
  ReadyParameter high = positive("f_max", "Hz", "highest frequency made");
  high.otherwise = "the site's highest";
  parameters.push_back(high);
  return parameters;
}

std::string between_limits(const std::string& density) {
  return "f_min[Hz]@Hz#" + density + "#f_max[Hz]@Hz";
}

void complete_limits(Base::Params& parameters, const ReadyContext& context) {
  const bool only_high = parameters.contains("f_max") && !parameters.contains("f_min");
  if (!parameters.contains("f_min")) parameters.insert("f_min", context.min_freq, "Hz");
  if (!parameters.contains("f_max")) parameters.insert("f_max", context.max_freq, "Hz");
  const FrequencyRange limits = limits_in(parameters);
  if (!(limits.low < limits.high)) {
    if (only_high) throw Base::compose("f_max::must be above f_min, which is ", limits.low, " Hz");
    throw Base::compose("f_min::must be below f_max, which is ", limits.high, " Hz");
  }
}

FrequencyRange limits_in(const Base::Params& parameters) {
  return {parameters.get("f_min", "Hz"), parameters.get("f_max", "Hz")};
}

FrequencyRange band_edges(const FrequencyRange& limits, const ReadyContext& context) {
  if (!(context.repeat > 0.0)) return limits;
  // The library takes the harmonic nearest to a limit.
  const double first = std::fmax(std::floor(limits.low * context.repeat + 0.5), 1.0);
  const double last = std::fmax(std::floor(limits.high * context.repeat + 0.5), first);
  return {(first - 0.5) / context.repeat, (last + 0.5) / context.repeat};
}

}  // namespace Jobs::Ready
