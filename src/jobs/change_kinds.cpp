#include "jobs/change_kinds.h"

#include <array>
#include <utility>

#include "base/enumerations.h"
#include "facade/wave_modifiers.h"
#include "jobs/bind_parameters.h"
#include "jobs/ready_sea.h"

namespace Jobs {

std::vector<std::string> modifier_names() {
  std::vector<std::string> names;
  for (const std::string& name : members_of(Base::Quantity(Base::enum_of_type("WaveMod")))) {
    try {
      Kelpbox::make_modifier(Base::make_enum("WaveMod", name), "");
      names.push_back(name);
    } catch (const std::string&) {
      continue;
    }
  }
  return names;
}

std::vector<std::string> change_kinds() {
  std::vector<std::string> names = modifier_names();
  for (const ReadyChange& change : ready_changes()) names.push_back(change.name);
  return names;
}

std::string advice_for_kind(const std::string& kind) {
  if (kind == "AngleSet") return "use `AngleChange` with set = true";
  if (kind == "PhaseSet") return "use `PhaseChange` with set = true";
  return advice(kind, change_kinds());
}

bool takes_formula(const std::string& modifier) {
  return modifier != "PhaseRandom" && modifier != "PhaseWNoise";
}

const char* formula_example(const std::string& modifier) {
  if (modifier == "AngleChange" || modifier == "PhaseChange") return "10@deg";
  return modifier == "AngleSpread" ? "10" : "1";
}

std::string slot_name(Synthesis::Modifier::Slot slot) {
  static constexpr std::array<const char*, Synthesis::Modifier::slot_count> names = {
      "amplitude", "direction", "phase"};
  return names[slot];
}

bool is_about(const std::string& message, const Part& change) {
  const ReadyChange* ready = find_ready_change(change.kind);
  const std::string modifier = ready != nullptr ? ready->modifier : change.kind;
  static const std::pair<const char*, const char*> beginnings[] = {
      {"AngleSweepModifier::", "AngleSweep"},
      {"Sweep has zero output", "AngleSweep"},
      {"AngleSpreadModifier::", "AngleSpread"},
      {"Spreading power::", "AngleSpread"},
      {"rate::", "PhaseWNoise"},
  };
  for (const auto& [beginning, name] : beginnings) {
    if (modifier == name && message.starts_with(beginning)) return true;
  }
  return false;
}

}  // namespace Jobs
