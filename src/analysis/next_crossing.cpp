#include "analysis/next_crossing.h"

// This file is compiled once for each instruction set.
#undef HWY_TARGET_INCLUDE
#define HWY_TARGET_INCLUDE "analysis/next_crossing.cpp"
#include <hwy/foreach_target.h>
#include <hwy/highway.h>

HWY_BEFORE_NAMESPACE();
namespace Analysis {
namespace HWY_NAMESPACE {

namespace hn = hwy::HWY_NAMESPACE;
using Tag = hn::ScalableTag<double>;
using Lanes = hn::Vec<Tag>;

// In each lane the extremes of some samples. Comparisons with NaN are false, and no extreme becomes
// -0, so the order of the samples does not matter.
struct Extremes {
  void add(Lanes sample) {
    high = hn::IfThenElse(hn::Gt(sample, high), sample, high);
    low = hn::IfThenElse(hn::Lt(sample, low), sample, low);
  }
  void store(double& crest, double& trough) const {
    crest = hn::GetLane(hn::MaxOfLanes(Tag(), high));
    trough = hn::GetLane(hn::MinOfLanes(Tag(), low));
  }

  Lanes high;
  Lanes low;
};

auto crossings(const double* samples, Lanes sample) {
  const auto zero = hn::Zero(Tag());
  return hn::And(hn::Le(hn::LoadU(Tag(), samples - 1), zero), hn::Gt(sample, zero));
}

std::size_t search(const double* samples, std::size_t count, double& crest, double& trough) {
  const Tag d;
  const std::size_t lanes = hn::Lanes(d);
  Extremes extremes{hn::Set(d, crest), hn::Set(d, trough)};
  Extremes others = extremes;
  std::size_t i = 0;
  for (; i + 4 * lanes <= count; i += 4 * lanes) {
    const double* const at = samples + i;
    const auto s0 = hn::LoadU(d, at);
    const auto s1 = hn::LoadU(d, at + lanes);
    const auto s2 = hn::LoadU(d, at + 2 * lanes);
    const auto s3 = hn::LoadU(d, at + 3 * lanes);
    const auto first = hn::Or(crossings(at, s0), crossings(at + lanes, s1));
    const auto second = hn::Or(crossings(at + 2 * lanes, s2), crossings(at + 3 * lanes, s3));
    if (!hn::AllFalse(d, hn::Or(first, second))) break;
    extremes.add(s0);
    others.add(s1);
    extremes.add(s2);
    others.add(s3);
  }
  extremes.add(others.high);
  extremes.add(others.low);
  for (; i + lanes <= count; i += lanes) {
    const auto sample = hn::LoadU(d, samples + i);
    const auto found = crossings(samples + i, sample);
    if (!hn::AllFalse(d, found)) {
      const auto before = static_cast<std::size_t>(hn::FindFirstTrue(d, found));
      extremes.add(hn::IfThenElseZero(hn::FirstN(d, before), sample));
      extremes.store(crest, trough);
      return i + before;
    }
    extremes.add(sample);
  }
  extremes.store(crest, trough);
  for (; i < count; ++i) {
    const double* at = samples + i;
    const double sample = *at;
    if (at[-1] <= 0.0 && sample > 0.0) break;
    if (sample > crest) crest = sample;
    if (sample < trough) trough = sample;
  }
  return i;
}

}  // namespace HWY_NAMESPACE
}  // namespace Analysis
HWY_AFTER_NAMESPACE();

#if HWY_ONCE
namespace Analysis {

HWY_EXPORT(search);

std::size_t next_crossing(const double* samples, std::size_t count, double& crest, double& trough) {
  return HWY_DYNAMIC_DISPATCH(search)(samples, count, crest, trough);
}

}  // namespace Analysis
#endif
