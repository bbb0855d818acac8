#include "site/limits.h"

#include <cmath>

#include "base/constants.h"
#include "base/enumerations.h"
#include "maths/angle.h"
#include "site/tank.h"

namespace Common {

namespace {

// Above this, neighbouring doubles are so far apart that an angle names no direction.
constexpr double largest_angle = 1e15;

}  // namespace

void FixedLimit::declare(Script::List& list) {
  list.fixed("units", units);
  list.fixed("maximum", maximum);
  list.fixed("minimum", minimum);
}

void FixedLimits::declare(Script::List& list) {
  list.object("frequency", frequency);
  list.object("angle", angle);
}

void FixedLimits::get_consts(Base::Params& out) {
  const std::uint32_t geometry = out.read_enum("geometry", Base::EnumType::Geometry);

  const FixedLimit& freq = frequency.built();
  if (freq.maximum < freq.minimum) {
    throw problem("Create")
        .add("Error that max freq ")
        .add(freq.maximum)
        .add(" is less than min freq ")
        .add(freq.minimum);
  }

  const FixedLimit& direction = angle.built();
  double max_angle = direction.maximum;
  double min_angle = direction.minimum;
  if (direction.units == "deg") {
    // Not by the unit table, whose factor has only six figures.
    max_angle *= Base::Pi / 180.0;
    min_angle *= Base::Pi / 180.0;
  } else if (direction.units != "rad") {
    throw problem("Create")
        .add("Unknown angle units ")
        .add(direction.units)
        .add(" in fixed limits");
  }
  if (std::abs(max_angle) > largest_angle || std::abs(min_angle) > largest_angle) {
    throw problem("Create").add("Angle limits in fixed limits are too large");
  }
  max_angle = Maths::wrap_angle(max_angle);
  min_angle = Maths::wrap_angle(min_angle);
  if (std::abs(max_angle - min_angle) < 0.001) max_angle = min_angle;

  if (geometry > Tank::Geometry_enum::TwoDimensional) {
    throw std::string("Missing enumerator for Geometry");
  }
  out.insert("max_angle", max_angle, "rad");
  out.insert("min_angle", min_angle, "rad");
  out.insert("max_freq", freq.maximum, freq.units);
  out.insert("min_freq", freq.minimum, freq.units);
}

}  // namespace Common
