// The steps from a site script to the TankConfig, which all computations use.
//
// Context::create, after the script has been read:
//   1. get_consts collects the limits of tank, frequency and direction, the base rate and gravity,
//      each with the units that the script gives it.
//   2. read_limits converts them to base units: the limit table.
//   3. use_limits copies what the TankConfig needs of the table.
// Context::make_ready, after create, and again after each change of a tunable value:
//   4. set_walls finds the side walls that reflect.
//   5. make_profile follows the bottom and finds the paddle line (tank_profile.h).
//
// Step 2 converts lengths from the tank's `units`; steps 4 and 5 take the numbers of the script as
// metres. The two disagree for a tank in any other unit. Kept on purpose: hosts rely on both.
#include <cmath>
#include <string>

#include "base/enumerations.h"
#include "site/context.h"
#include "site/tank_profile.h"

namespace Common {

namespace {

LimitTable read_limits(const Base::Params& consts) {
  LimitTable table{};
  const auto store = [&](int row, const char* name, Base::UnitCategory category) {
    table[static_cast<std::size_t>(row)] = consts.at(name).get(category);
  };
  // The first value that cannot be converted is the one reported, so the order matters to hosts.
  store(Limit::min_x, "min_x", Base::Category::length);
  store(Limit::max_x, "max_x", Base::Category::length);
  store(Limit::min_y, "min_y", Base::Category::length);
  store(Limit::max_y, "max_y", Base::Category::length);
  store(Limit::base_g, "base_g", Base::Category::acceleration);
  store(Limit::base_rate, "base_rate", Base::Category::frequency);
  store(Limit::max_freq, "max_freq", Base::Category::frequency);
  store(Limit::min_freq, "min_freq", Base::Category::frequency);
  store(Limit::max_angle, "max_angle", Base::Category::angle);
  store(Limit::min_angle, "min_angle", Base::Category::angle);
  return table;
}

void use_limits(const LimitTable& limits, Maths::TankConfig& out) {
  out.min_angle = limits[Limit::min_angle];
  out.max_angle = limits[Limit::max_angle];
  out.g = limits[Limit::base_g];
  out.base_rate = limits[Limit::base_rate];
}

void set_walls(const Tank& tank, Maths::TankConfig& out) {
  using Geometry = Tank::Geometry_enum;
  const double across = tank.max_y - tank.min_y;
  switch (tank.geometry.number) {
    case Geometry::NoSides:
    case Geometry::TwoDimensional:
      out.has_walls = false;
      out.width = 0.0;
      out.y_ref = 0.0;
      break;
    case Geometry::PlusSide:
      out.has_walls = true;
      out.width = 2 * across;
      out.y_ref = tank.max_y;
      break;
    case Geometry::MinusSide:
      out.has_walls = true;
      out.width = 2 * across;
      out.y_ref = tank.min_y;
      break;
    case Geometry::BothSides:
      out.has_walls = true;
      out.width = across;
      out.y_ref = (tank.max_y + tank.min_y) * 0.5;
      break;
    default:
      throw std::string("Unexpected type in Geometry");
  }
  // Every phase refers to y_ref. The width matters only to the modes between side walls, and is
  // checked there.
  if (!std::isfinite(out.y_ref)) {
    throw std::string("Tank::max_y or min_y is not a number");
  }
}

}  // namespace

void Context::create() {
  Base::Params consts;
  get_consts(consts);
  limit_table_ = read_limits(consts);
  geometry_ = consts.read_enum("geometry", Base::EnumType::Geometry);
  use_limits(limit_table_, tank_config_);
  full_name_ = tank_name + " " + config_name;
}

void Context::make_ready() {
  if (ready_) throw problem("General").add("Make ready called when already ready");
  tank.built().make_config(tank_config_);
  ready_ = true;
}

void Tank::make_config(Maths::TankConfig& out) const {
  set_walls(*this, out);
  out.x_low = min_x;
  out.x_high = max_x;
  make_profile(*this, out);
}

}  // namespace Common
