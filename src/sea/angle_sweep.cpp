#include "sea/angle_sweep.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <vector>

#include "base/compose.h"
#include "base/constants.h"
#include "base/memory.h"
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
  double weight_sum = 0.0;
};

// A direction with this weight or less is left out.
constexpr double negligible_weight = 1e-6;

// Only a mistaken step gives more fronts or more steps than these. They take seconds, at 20 to 200
// ns each.
constexpr std::size_t most_fronts = std::size_t{1} << 24;
constexpr std::int32_t most_steps = std::int32_t{1} << 26;

// The number of harmonics in use. Each of them gets a fan.
std::size_t count_used(const Maths::FrontSet& fronts) {
  return static_cast<std::size_t>(
      std::count_if(fronts.slots.begin(), fronts.slots.end(),
                    [](const std::vector<Maths::HarmonicFront>& slot) { return !slot.empty(); }));
}

// Grows a full list after a check of the memory: its length is known only at the end.
void make_room(std::vector<Direction>& directions) {
  if (directions.size() < directions.capacity()) return;
  const std::size_t capacity = std::max<std::size_t>(64, 2 * directions.capacity());
  Base::require_memory(capacity * sizeof(Direction), "Front set::more fronts");
  directions.reserve(capacity);
}

// Stops as soon as there are more directions than `most`.
Fan make_fan(const Modifier& modifier, double lo, double step, std::int32_t n, std::size_t most) {
  const Modifier::Values weight(modifier);
  Fan fan;
  for (std::int32_t i = 0; i <= n && fan.directions.size() <= most; ++i) {
    const double a = Maths::wrap_angle(i * step + lo);
    const double w = weight(a);
    if (w > negligible_weight) {
      make_room(fan.directions);
      fan.directions.push_back({a, w});
      fan.weight_sum += w;
    }
  }
  if (fan.weight_sum < negligible_weight) throw std::string("Sweep has zero output");
  return fan;
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
                                     const RunContext& context) {
  const double delta_angle = stored.read("delta_angle", Category::angle);
  const double lo = context.tank.min_angle;
  const double hi = context.tank.max_angle;
  double span = hi - lo;
  if (hi < lo) span += Base::TwoPi;
  const std::int32_t n = Maths::round_to_i32(span / delta_angle);
  const auto refuse = [&] {
    throw Base::compose(name(), "::delta_angle of ", delta_angle,
                        " rad gives no usable fan of directions");
  };
  if (n > most_steps) refuse();
  const std::size_t used = count_used(fronts);
  const std::size_t most = most_fronts / std::max<std::size_t>(used, 1);
  const Fan fan = make_fan(*this, lo, span / n, n, most);
  // Without a step there is no direction to weight.
  if (n == 0 || fan.directions.size() > most) refuse();
  Base::require_memory(used * Maths::list_memory(fan.directions.size()), "Front set::more fronts");
  for (std::vector<Maths::HarmonicFront>& slot : fronts.slots) {
    if (slot.empty()) continue;
    const Maths::HarmonicFront first = slot.front();
    slot.clear();
    slot.reserve(fan.directions.size());
    for (const Direction& direction : fan.directions) {
      slot.push_back({first.amp * direction.weight / fan.weight_sum, direction.angle, first.phase});
    }
  }
}

}  // namespace Synthesis
