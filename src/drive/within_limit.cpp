#include "drive/within_limit.h"

#include <algorithm>
#include <cmath>

// This file is compiled once for each instruction set.
#undef HWY_TARGET_INCLUDE
#define HWY_TARGET_INCLUDE "drive/within_limit.cpp"
#include <hwy/foreach_target.h>
#include <hwy/highway.h>

HWY_BEFORE_NAMESPACE();
namespace Synthesis {
namespace HWY_NAMESPACE {

namespace hn = hwy::HWY_NAMESPACE;

bool within(const double* samples, std::size_t count, double limit) {
  const hn::ScalableTag<double> d;
  const std::size_t lanes = hn::Lanes(d);
  const auto largest = hn::Set(d, limit);
  std::size_t i = 0;
  for (; i + 4 * lanes <= count; i += 4 * lanes) {
    const auto a = hn::Le(hn::Abs(hn::LoadU(d, samples + i)), largest);
    const auto b = hn::Le(hn::Abs(hn::LoadU(d, samples + i + lanes)), largest);
    const auto e = hn::Le(hn::Abs(hn::LoadU(d, samples + i + 2 * lanes)), largest);
    const auto f = hn::Le(hn::Abs(hn::LoadU(d, samples + i + 3 * lanes)), largest);
    if (!hn::AllTrue(d, hn::And(hn::And(a, b), hn::And(e, f)))) return false;
  }
  return std::all_of(samples + i, samples + count,
                     [limit](double sample) { return std::fabs(sample) <= limit; });
}

}  // namespace HWY_NAMESPACE
}  // namespace Synthesis
HWY_AFTER_NAMESPACE();

#if HWY_ONCE
namespace Synthesis {

HWY_EXPORT(within);

bool all_within(const double* samples, std::size_t count, double limit) {
  return HWY_DYNAMIC_DISPATCH(within)(samples, count, limit);
}

}  // namespace Synthesis
#endif
