#include "site/section_depth.h"

#include <cmath>

#include "base/compose.h"

namespace Common {
namespace {

// About two seconds.
constexpr std::size_t most_evaluated = 250'000'000;

}  // namespace

SectionDepth::SectionDepth(const Section& section, std::int32_t script_index)
    : section_(section),
      script_index_(script_index),
      origin_(section.offset.number == Section::Offset_enum::Absolute ? 0.0 : section.x) {}

double SectionDepth::at(double x) {
  if (evaluated_ > most_evaluated) {
    fail(Base::compose("depth profile takes too many steps for a formula of ",
                       section_.depth.size(), " characters, stopped at x = ", x));
  }
  evaluated_ += section_.depth.size();
  const Base::Quantity depth =
      section_.function.evaluate(Base::Quantity(x - origin_, Base::Category::length));
  // A result without units is in metres.
  const Base::UnitCategory category = Base::category_of(depth.units) == Base::Category::unit
                                          ? Base::Category::unit
                                          : Base::Category::length;
  return depth.value * Base::factor_to_base(depth.units, category);
}

void SectionDepth::require_finite(double depth, double x) const {
  if (std::isfinite(depth)) return;
  fail(Base::compose("depth ", depth, " at x = ", x, " is not a number"));
}

void SectionDepth::fail_endless(double x) const {
  fail(Base::compose("depth profile does not come to an end, stopped at x = ", x));
}

void SectionDepth::fail(const std::string& problem) const {
  throw Base::compose("Section[", script_index_, "]::", problem);
}

}  // namespace Common
