#include "maths/merge_sets.h"

#include <cmath>
#include <complex>
#include <string>
#include <vector>

#include "base/near.h"

namespace Maths {
namespace {

std::complex<double> amplitude(const HarmonicFront& front) {
  // A front outside the tank's angle limits has amplitude 0, and its phase may be NaN.
  if (front.amp == 0.0 && !std::isfinite(front.phase)) return 0.0;
  return {front.amp * std::cos(front.phase), front.amp * std::sin(front.phase)};
}

// A position that is NaN passes.
bool differs(double ours, double theirs) { return Base::relative_difference(ours, theirs) >= 1e-6; }

}  // namespace

void merge_sets(FrontSet& target, const FrontSet& other) {
  if (differs(target.position.x, other.position.x) ||
      differs(target.position.y, other.position.y) ||
      differs(target.position.t, other.position.t)) {
    throw std::string("Error in position when merging fronts");
  }
  if (target.slots.size() != other.slots.size()) {
    throw std::string("Mismatched sizes in front sets");
  }
  for (std::size_t slot = 0; slot < target.slots.size(); ++slot) {
    std::vector<HarmonicFront>& ours = target.slots[slot];
    const std::vector<HarmonicFront>& theirs = other.slots[slot];
    for (std::size_t j = 0; j < theirs.size(); ++j) {
      if (j < ours.size() && ours[j].angle == theirs[j].angle) {
        const std::complex<double> sum = amplitude(ours[j]) + amplitude(theirs[j]);
        ours[j].amp = std::abs(sum);
        ours[j].phase = std::atan2(sum.imag(), sum.real());
      } else {
        target.append(slot, theirs[j]);
      }
    }
  }
}

}  // namespace Maths
