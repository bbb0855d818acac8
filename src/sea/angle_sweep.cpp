#include "sea/angle_sweep.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <vector>

#include "base/compose.h"
#include "base/constants.h"
#include "maths/angle.h"
#include "maths/rounding.h"

namespace Synthesis {

namespace {

namespace Category = Base::Category;

struct Direction {
  double angle;
  double weight;
};

struct Fan {
  std::vector<Direction> directions;
  double sum = 0.0;  // of the weights
};

Fan make_fan(const Modifier& modifier, double lo, double step, std::int32_t n) {
  Fan fan;
  for (std::int32_t i = 0; i <= n; ++i) {
    const double a = Maths::wrap_angle(i * step + lo);
    const double w = modifier.value(a);
    if (w > 1e-6) {
      fan.directions.push_back({a, w});
      fan.sum += w;
    }
  }
  if (fan.sum < 1e-6) throw std::string("Sweep has zero output");
  return fan;
}

// Millions of fronts come only of a mistaken step.
bool too_many(std::int32_t n, const Maths::FrontSet& fronts) {
  constexpr std::int64_t most = std::int64_t{1} << 24;
  const std::int64_t used =
      std::count_if(fronts.slots.begin(), fronts.slots.end(),
                    [](const std::vector<Maths::HarmonicFront>& slot) { return !slot.empty(); });
  return (n + std::int64_t{1}) * std::max<std::int64_t>(used, 1) > most;
}

}  // namespace

AngleSweepModifier::AngleSweepModifier(const std::string& text)
    : Modifier(angle, "AngleSweepModifier", Category::angle, Category::unit, text) {}

void AngleSweepModifier::on_query(Base::Params& out) {
  out.declare("delta_angle", Base::default_units(Category::angle));
}

void AngleSweepModifier::on_set(Base::Params& in, Base::Params& stored) {
  stored.merge(*in.find("delta_angle"));
}

void AngleSweepModifier::on_evaluate(const Base::Params& stored, Maths::FrontSet& fronts,
                                     const Maths::RunData&, const Maths::TankConfig& tank,
                                     Messages&) {
  const double delta_angle = stored.read("delta_angle", Category::angle);
  const double lo = tank.min_angle;
  const double hi = tank.max_angle;
  double span = hi - lo;
  if (hi < lo) span += Base::TwoPi;
  const std::int32_t n = Maths::round_to_i32(span / delta_angle);
  const auto refuse = [&] {
    throw Base::compose(name(), "::delta_angle of ", delta_angle,
                        " rad gives no usable fan of directions");
  };
  if (too_many(n, fronts)) refuse();
  const Fan fan = make_fan(*this, lo, span / n, n);
  // Of no steps: what has a weight has no direction.
  if (n == 0) refuse();
  for (std::vector<Maths::HarmonicFront>& slot : fronts.slots) {
    if (slot.empty()) continue;
    const Maths::HarmonicFront first = slot.front();
    slot.clear();
    slot.reserve(fan.directions.size());
    for (const Direction& direction : fan.directions) {
      slot.push_back({first.amp * direction.weight / fan.sum, direction.angle, first.phase});
    }
  }
}

}  // namespace Synthesis
