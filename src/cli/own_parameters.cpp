// The meanings of the parameters that the library declares.
#include <algorithm>
#include <map>

#include "base/enumerations.h"
#include "base/units.h"
#include "cli/own_kinds.h"
#include "facade/wave_modifiers.h"
#include "jobs/bind_parameters.h"
#include "jobs/fallbacks.h"

namespace Cli {

namespace {

struct Meaning {
  const char* text;
  const char* otherwise = "";  // what is taken without a value, where it depends on the rest
};

// By "kind.name", or by the name alone where it means the same for all kinds.
const Meaning& meaning_of(const std::string& kind, const std::string& name) {
  static const std::map<std::string, Meaning> table = {
      {"a", {"amplitude, half of the height"}},
      {"f", {"frequency; the nearest harmonic is made"}},
      {"single.angle", {"direction in which it travels"}},
      {"phase", {"at the sea's position; 0 for a crest"}},
      {"time.rate", {"how often the formula is sampled: more than twice the highest frequency"}},
      {"record.rate", {"samples per second", "from its column of times"}},
      {"scale_ratio", {"Froude scale of the record, 50 for a model of 1:50"}},
      {"ramp_time", {"how much of a longer record may be added onto its beginning"}},
      {"ramp_type", {"kept for hosts: all have the same effect"}},
      {"delta_angle", {"step between two directions"}},
      {"function", {"the law of the power"}},
      {"AngleSpread.angle", {"mean direction"}},
      {"max_angle", {"greatest direction drawn", "the site's limit"}},
      {"min_angle", {"smallest direction drawn", "the site's limit"}},
      {"ran_gen", {"Default ignores the seed", "FullRandom with a seed"}},
      {"seed", {"the same seed draws the same sea", "that of the library"}},
      {"PhaseWNoise.rate",
       {"samples per second of the noise: more than twice the highest frequency"}},
      {"AngleChange.set", {"True replaces directions, False adds to them"}},
      {"PhaseChange.set", {"True replaces phases, False adds to them"}},
  };
  static const Meaning none{""};
  const auto whole = table.find(kind + "." + name);
  if (whole != table.end()) return whole->second;
  const auto found = table.find(name);
  return found == table.end() ? none : found->second;
}

std::string members_text(const Base::Quantity& enumeration) {
  std::string text;
  for (const std::string& member : Jobs::members_of(enumeration)) {
    text += (text.empty() ? "" : ", ") + member;
  }
  return text;
}

}  // namespace

std::vector<PageParameter> declared_parameters(const std::string& kind,
                                               const Base::Params& declared) {
  const std::map<std::string, std::string>& fallbacks = Jobs::fallbacks_of(kind);
  std::vector<PageParameter> parameters;
  for (const auto& [name, quantity] : declared.entries()) {
    const Meaning& meaning = meaning_of(kind, name);
    PageParameter parameter;
    parameter.name = name;
    parameter.meaning = meaning.text;
    if (quantity.is_enum()) {
      parameter.range = "one of " + members_text(quantity);
    } else {
      parameter.units = Base::units_text(quantity.units);
    }
    const auto fallback = fallbacks.find(name);
    parameter.fallback = meaning.otherwise;
    if (parameter.fallback.empty() && fallback != fallbacks.end()) {
      parameter.fallback = fallback->second;
    }
    parameter.required = parameter.fallback.empty();
    parameters.push_back(std::move(parameter));
  }
  std::stable_partition(parameters.begin(), parameters.end(),
                        [](const PageParameter& parameter) { return parameter.required; });
  return parameters;
}

Base::Params declared_by_modifier(const std::string& modifier) {
  Base::Params declared;
  Kelpbox::make_modifier(Base::make_enum("WaveMod", modifier), "")->query(declared);
  return declared;
}

}  // namespace Cli
