#include "site/context.h"

#include <charconv>
#include <iterator>

namespace Common {

Script::List& Context::Units_enum::members() {
  static Script::List list = [] {
    Script::List members;
    members.member("Hz", Hz);
    members.member("rad_s", rad_s);
    return members;
  }();
  return list;
}

Context::Context() : wavemaker_bank(Script::Rule::at_least(1).from(1)) {}

void Context::declare(Script::List& list) {
  list.fixed("site_name", site_name);
  list.fixed("tank_name", tank_name);
  list.fixed("config_name", config_name);
  list.object("tank", tank);
  list.object("limits", limits);
  list.array("wavemaker_bank", wavemaker_bank);
  list.fixed("rate_units", rate_units);
  list.fixed("base_rate", base_rate);
  list.fixed("base_g", base_g);
  list.fixed("base_rho", base_rho);
}

const Maths::TankConfig& Context::tank_config() const {
  if (!ready_) {
    throw problem("General").add("Attempting to access TankConfig when not made ready");
  }
  return tank_config_;
}

double Context::get(int index) const {
  if (index < 0 || index >= Limit::count) throw std::string("type out of range");
  return limit_table_[static_cast<std::size_t>(index)];
}

void Context::get_consts(Base::Params& out) {
  tank.built().get_consts(out);
  limits.built().get_consts(out);
  const char* unit = nullptr;
  switch (rate_units.number) {
    case Units_enum::Hz:
      unit = "Hz";
      break;
    case Units_enum::rad_s:
      unit = "rad/s";
      break;
    default:
      throw std::string("Unsupported units for rate");
  }
  out.insert("base_rate", base_rate, unit);
  out.insert("base_g", base_g, "m/s2");
}

std::string Context::identity(std::uint32_t checksum) const {
  // A stream that runs out of memory would cut the name silently.
  char digits[8];
  char* const end = std::to_chars(std::begin(digits), std::end(digits), checksum, 16).ptr;
  return site_name + "::" + tank_name + "::" + config_name + "#0x" + std::string(digits, end);
}

}  // namespace Common
