#include "jobs/ready_sea.h"

#include <cmath>
#include <iterator>

#include "base/compose.h"
#include "jobs/density_integral.h"
#include "jobs/ready_parts.h"

namespace Jobs {

namespace {

// Values that are finite each for itself can be too large or too small together.
void require_finite(const ReadySea& sea, const Base::Params& given) {
  const double peak = sea.peak(given);
  bool finite = std::isfinite(peak);
  if (!sea.formula.empty()) finite = finite && std::isfinite(density_of(sea.formula, given)(peak));
  if (!finite) throw std::string("these values together give no finite wave");
}

// Every sea's parameters are checked and every density's limits are completed in the same way.
void complete_in_common(ReadySea& sea) {
  sea.complete = [sea](Base::Params& given, const ReadyContext& context) {
    check_values(sea.parameters, given);
    if (!sea.formula.empty()) Ready::complete_limits(given, context);
    if (sea.complete) sea.complete(given, context);
    require_finite(sea, given);
  };
}

std::vector<ReadySea> collect() {
  std::vector<ReadySea> all;
  for (auto* list :
       {Ready::wind_seas, Ready::peaked_seas, Ready::mixed_seas, Ready::single_waves}) {
    std::vector<ReadySea> seas = list();
    std::move(seas.begin(), seas.end(), std::back_inserter(all));
  }
  for (ReadySea& sea : all) complete_in_common(sea);
  return all;
}

}  // namespace

std::string range_of(const ReadyParameter& parameter) {
  const bool bounded = std::isfinite(parameter.most);
  if (std::isfinite(parameter.above)) {
    return Base::compose("above ", parameter.above) +
           (bounded ? Base::compose(" and at most ", parameter.most) : std::string());
  }
  if (std::isfinite(parameter.least)) {
    return bounded ? Base::compose("from ", parameter.least, " to ", parameter.most)
                   : Base::compose("at least ", parameter.least);
  }
  return bounded ? Base::compose("at most ", parameter.most) : std::string();
}

void check_values(const std::vector<ReadyParameter>& parameters, const Base::Params& given) {
  for (const ReadyParameter& parameter : parameters) {
    if (!given.contains(parameter.name)) continue;
    const double value = given.get(parameter.name, parameter.units);
    if (!std::isfinite(value)) throw parameter.name + "::must be a finite number";
    if (value > parameter.above && value >= parameter.least && value <= parameter.most) continue;
    throw parameter.name + "::must be " + range_of(parameter);
  }
}

const std::vector<ReadySea>& ready_seas() {
  static const std::vector<ReadySea> seas = collect();
  return seas;
}

const ReadySea* find_ready_sea(const std::string& name) {
  for (const ReadySea& sea : ready_seas()) {
    if (sea.name == name) return &sea;
  }
  return nullptr;
}

}  // namespace Jobs
