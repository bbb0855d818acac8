#include "jobs/fallbacks.h"

namespace Jobs {

const std::map<std::string, std::string>& fallbacks_of(const std::string& part) {
  using Values = std::map<std::string, std::string>;
  // A change's "ran_gen" also depends on its seed, and its limits of angle on the site
  // (add_change.cpp). The rates of [drive] and of a point come from the site and from [drive].
  static const std::map<std::string, Values> table = {
      {"run",
       {{"dalrymple", "False"}, {"wave_merge", "Null"}, {"ran_gen", "Default"}, {"seed", "0"}}},
      {"holds", {{"x", "0 m"}, {"y", "0 m"}, {"t", "0 s"}}},
      {"single", {{"angle", "0 deg"}, {"phase", "0 deg"}}},
      {"record", {{"scale_ratio", "1"}, {"ramp_time", "0 s"}, {"ramp_type", "Null"}}},
      {"AngleSpread", {{"ran_gen", "Default"}, {"seed", "0"}}},
      {"AngleChange", {{"set", "False"}}},
      {"PhaseRandom", {{"ran_gen", "Default"}, {"seed", "0"}}},
      {"PhaseWNoise", {{"ran_gen", "Default"}, {"seed", "0"}}},
      {"PhaseChange", {{"set", "False"}}},
      {"drive", {{"ramp", "0 s"}, {"stop_at_limit", "False"}}},
      {"point", {{"delta_angle", "10 deg"}}},
  };
  static const Values none;
  const auto found = table.find(part);
  return found == table.end() ? none : found->second;
}

}  // namespace Jobs
