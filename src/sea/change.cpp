#include "sea/change.h"

#include <cstddef>

#include "base/enumerations.h"
#include "maths/angle.h"

namespace Synthesis {

namespace {

namespace Category = Base::Category;

// Calls `change` with each front and the value of the modifier's expression at its frequency.
template <typename Change>
void change_fronts(const Modifier& modifier, Maths::FrontSet& fronts, const Maths::RunData& run,
                   Change change) {
  const Modifier::Values value(modifier);
  for (std::size_t h = 0; h < fronts.slots.size(); ++h) {
    if (fronts.slots[h].empty()) continue;
    const double v = value(run.freq(h));
    for (Maths::HarmonicFront& front : fronts.slots[h]) change(front, v);
  }
}

bool replaces(const Base::Params& stored) {
  return stored.read_enum("set", Base::EnumType::Bool) == Base::Bool::True;
}

}  // namespace

GainChangeModifier::GainChangeModifier(const std::string& text)
    : Modifier(gain, "Gain", Category::frequency, Category::unit, text) {}

void GainChangeModifier::on_evaluate(const Base::Params&, Maths::FrontSet& fronts,
                                     const RunContext& context) {
  change_fronts(*this, fronts, context.run,
                [](Maths::HarmonicFront& front, double v) { front.amp *= v; });
}

// Hosts know it by this name, without the e.
AngleChangeModifier::AngleChangeModifier(const std::string& text)
    : Modifier(angle, "AngleChangModifier", Category::frequency, Category::angle, text) {}

void AngleChangeModifier::on_query(Base::Params& out) {
  out.declare_enum("set", Base::EnumType::Bool);
}

void AngleChangeModifier::on_set(Base::Params& in, Base::Params& stored) {
  stored.merge(*in.find("set"));
}

void AngleChangeModifier::on_evaluate(const Base::Params& stored, Maths::FrontSet& fronts,
                                      const RunContext& context) {
  const bool replace = replaces(stored);
  change_fronts(*this, fronts, context.run, [replace](Maths::HarmonicFront& front, double v) {
    front.angle = Maths::wrap_angle(replace ? v : front.angle + v);
  });
}

PhaseChangeModifier::PhaseChangeModifier(const std::string& text)
    : Modifier(phase, "PhaseModifier", Category::frequency, Category::angle, text) {}

void PhaseChangeModifier::on_query(Base::Params& out) {
  out.declare_enum("set", Base::EnumType::Bool);
}

void PhaseChangeModifier::on_set(Base::Params& in, Base::Params& stored) {
  stored.merge(*in.find("set"));
}

void PhaseChangeModifier::on_evaluate(const Base::Params& stored, Maths::FrontSet& fronts,
                                      const RunContext& context) {
  const bool replace = replaces(stored);
  change_fronts(*this, fronts, context.run, [replace](Maths::HarmonicFront& front, double v) {
    front.phase = replace ? v : front.phase + v;
  });
}

}  // namespace Synthesis
