#include "site/machine.h"

#include <string>

#include "maths/wavemaker_ratio.h"

namespace Common {

void PaddleMotion::declare(Script::List& list) {
  list.fixed("clip_limit", clip_limit);
  list.fixed("maximum", maximum);
  list.fixed("minimum", minimum);
  list.fixed("units", units);
}

void PaddleConst::declare(Script::List& list) {
  list.fixed("name", name);
  list.fixed("units", units);
  list.fixed("value", value);
}

Script::List& Machine::DimensionType_enum::members() {
  static Script::List list = [] {
    Script::List members;
    members.member("ToBottom", ToBottom);
    members.member("ToSurface", ToSurface);
    return members;
  }();
  return list;
}

Machine::Machine() : constant(Script::Rule::any().from(1)) {}

void Machine::declare(Script::List& list) {
  list.fixed("paddle_width", paddle_width);
  list.fixed("critical_dimension", critical_dimension);
  list.fixed("dimension_type", dimension_type);
  list.object("paddle_motion", paddle_motion);
  list.array("constant", constant);
}

double Machine::get(std::uint32_t which, Base::Units to) const {
  const PaddleMotion& motion = paddle_motion.built();
  const Base::Units from = Base::resolve_units(motion.units);
  double value = 0.0;
  switch (which) {
    case clip_limit:
      value = motion.clip_limit;
      break;
    case maximum:
      value = motion.maximum;
      break;
    case minimum:
      value = motion.minimum;
      break;
    default:
      throw std::string("Unknown value type in machine::get");
  }
  return value * Base::factor(from, to);
}

Base::Units Machine::units() const { return Base::resolve_units(paddle_motion.built().units); }

void Machine::get_limits(Base::Params& out) const {
  const PaddleMotion& motion = paddle_motion.built();
  const Base::Units motion_units = Base::resolve_units(motion.units);
  out.insert("clip_paddle_motion", motion.clip_limit, motion_units);
  out.insert("max_paddle_motion", motion.maximum, motion_units);
  out.insert("min_paddle_motion", motion.minimum, motion_units);
  for (std::size_t i = 0; i < constant.size(); ++i) {
    const PaddleConst& entry = constant[i];
    out.insert(entry.name, entry.value, entry.units);
  }
}

double Machine::ratio(double, double, double) const {
  throw std::string("Unsupported type of machine found");
}

Base::Units Machine::signal_units() const {
  throw std::string("Unsupported type of machine found");
}

double Machine::working_edge(double depth) const {
  if (dimension_type.number != DimensionType_enum::ToBottom &&
      dimension_type.number != DimensionType_enum::ToSurface) {
    throw std::string("Unsupported critical dimension type found");
  }
  return edge(depth);
}

double Machine::edge(double depth) const {
  return dimension_type.number == DimensionType_enum::ToSurface ? critical_dimension
                                                                : depth - critical_dimension;
}

double Flap::transfer(double k, double depth, double angle) const {
  return Maths::flap_ratio_angled(k, depth, edge(depth), paddle_width, angle);
}

double Flap::ratio(double k, double depth, double edge_depth) const {
  return Maths::flap_ratio(k, depth, edge_depth);
}

Base::Units Flap::signal_units() const { return Base::default_units(Base::Category::angle); }

double Piston::transfer(double k, double depth, double angle) const {
  return Maths::piston_ratio_angled(k, depth, edge(depth), paddle_width, angle);
}

double Piston::ratio(double k, double depth, double edge_depth) const {
  return Maths::piston_ratio(k, depth, edge_depth);
}

Base::Units Piston::signal_units() const { return Base::default_units(Base::Category::length); }

}  // namespace Common
