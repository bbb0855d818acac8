#include "sea/angle_spread.h"

#include <cmath>
#include <cstddef>
#include <cstdint>

#include "base/compose.h"
#include "base/constants.h"
#include "base/enumerations.h"
#include "maths/angle.h"
#include "maths/spreading.h"
#include "sea/seed.h"

namespace Synthesis {

namespace {

namespace Category = Base::Category;

// Used if the host chooses no seed.
constexpr std::uint32_t default_seed = 1;

// A change of a limit by this fraction or more is a "Poor match".
constexpr double noted_change = 0.01;

// Just short of a half turn.
double widest() { return Base::Pi - 0.0001; }

// How far from the mean direction the law reaches: just short of its zero.
double reach_of(std::uint32_t function) {
  switch (function) {
    case Base::SpreadFunc::CosS:
      return Base::Pi / 2 - 0.0001;
    case Base::SpreadFunc::Cos2S:
      return widest();
    default:
      throw std::string("Unknown function value in angle spread");
  }
}

double narrowed(double width, double reach) { return width > reach || width < 0 ? reach : width; }

// The angle, on the same side of pi as the requested one.
double beside(double angle, double requested) {
  if (angle <= 0 && requested - angle > widest()) return angle + 2 * Base::Pi;
  if (angle > 0 && angle - requested > widest()) return angle - 2 * Base::Pi;
  return angle;
}

}  // namespace

AngleSpreadModifier::AngleSpreadModifier(const std::string& text)
    : Modifier(angle, "AngleSpreadModifier", Category::frequency, Category::unit, text) {}

void AngleSpreadModifier::on_query(Base::Params& out) {
  out.declare_enum("function", Base::EnumType::SpreadFunc);
  for (const char* name : {"angle", "max_angle", "min_angle"}) {
    out.declare(name, Base::default_units(Category::angle));
  }
  query_seed(out);
}

void AngleSpreadModifier::on_set(Base::Params& in, Base::Params& stored) {
  for (const char* name : {"function", "angle"}) stored.merge(*in.find(name));
  set_seed(in, stored);
  const double mean = Maths::wrap_angle(in.read("angle", Category::angle));
  const double hi_in = in.read("max_angle", Category::angle);
  const double lo_in = in.read("min_angle", Category::angle);
  const double hi = Maths::wrap_angle(hi_in);
  const double lo = Maths::wrap_angle(lo_in);
  // A range through pi is not checked on purpose: hosts rely on any mean passing with it.
  if (hi > lo && (mean < lo || mean > hi)) throw std::string("Angle not between min and max");
  const double reach = reach_of(in.read_enum("function", Base::EnumType::SpreadFunc));
  const double up = narrowed(Maths::wrap_angle(hi - mean), reach);
  const double down = narrowed(Maths::wrap_angle(mean - lo), reach);
  const double new_hi = beside(Maths::wrap_angle(up + mean), hi_in);
  const double new_lo = beside(Maths::wrap_angle(mean - down), lo_in);
  stored.merge(*in.set_checked("min_angle", new_lo, Category::angle, noted_change));
  stored.merge(*in.set_checked("max_angle", new_hi, Category::angle, noted_change));
}

void AngleSpreadModifier::on_evaluate(const Base::Params& stored, Maths::FrontSet& fronts,
                                      const RunContext& context) {
  const std::uint32_t function = stored.read_enum("function", Base::EnumType::SpreadFunc);
  const double mean = stored.read("angle", Category::angle);
  const double max_angle = stored.read("max_angle", Category::angle);
  const double min_angle = stored.read("min_angle", Category::angle);
  Maths::PureRandom generator = make_generator(stored, default_seed);
  const double top = Maths::wrap_angle(max_angle - mean);
  const double bottom = Maths::wrap_angle(min_angle - mean);
  const Values power(*this);
  Maths::SpreadAngles law;
  for (std::size_t h = 0; h < fronts.slots.size(); ++h) {
    if (fronts.slots[h].empty()) continue;
    const double s = power(context.run.freq(h));
    for (Maths::HarmonicFront& front : fronts.slots[h]) {
      const double u = generator.unit();
      const double d = function == Base::SpreadFunc::CosS
                           ? law.draw(u, top, bottom, s)
                           : 2 * law.draw(u, top / 2, bottom / 2, 2 * s);
      if (!std::isfinite(d)) {
        throw Base::compose(name(), "::no direction can be drawn for a power of ", s);
      }
      front.angle = Maths::wrap_angle(d + mean);
      generator.advance();
    }
  }
}

}  // namespace Synthesis
