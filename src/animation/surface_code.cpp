#include "animation/surface_code.h"

#include <algorithm>

// This file is compiled once for each instruction set.
#undef HWY_TARGET_INCLUDE
#define HWY_TARGET_INCLUDE "animation/surface_code.cpp"
#include <hwy/foreach_target.h>
#include <hwy/highway.h>

HWY_BEFORE_NAMESPACE();
namespace Synthesis {
namespace HWY_NAMESPACE {

namespace hn = hwy::HWY_NAMESPACE;

// Encodes whole vectors, and returns how many heights it encoded: none that comes after a height
// without room in 32 bits.
std::size_t codes_of(const double* heights, std::size_t count, std::int16_t* out) {
  const hn::ScalableTag<double> d;
  const hn::Rebind<std::int32_t, decltype(d)> d32;
  const hn::Rebind<std::int16_t, decltype(d)> d16;
  std::size_t i = 0;
  for (; i + hn::Lanes(d) <= count; i += hn::Lanes(d)) {
    const auto height = hn::LoadU(d, heights + i);
    // False for NaN, too.
    if (!hn::AllTrue(d, hn::Lt(hn::Abs(height), hn::Set(d, 65536.0)))) break;
    const auto scaled = hn::Mul(hn::Mul(height, hn::Set(d, 32767.0)), hn::Set(d, 0.25));
    const auto rounded = hn::Add(scaled, hn::CopySign(hn::Set(d, 0.5), scaled));
    const auto counts = hn::DemoteTo(d32, rounded);
    // The low 16 bits with their sign, so that nothing is left to saturate.
    const auto low = hn::ShiftRight<16>(hn::ShiftLeft<16>(counts));
    hn::StoreU(hn::DemoteTo(d16, low), d16, out + i);
  }
  return i;
}

}  // namespace HWY_NAMESPACE
}  // namespace Synthesis
HWY_AFTER_NAMESPACE();

#if HWY_ONCE
namespace Synthesis {

HWY_EXPORT(codes_of);

void surface_codes(const double* heights, std::size_t count, std::int16_t* out) {
  const std::size_t done = HWY_DYNAMIC_DISPATCH(codes_of)(heights, count, out);
  std::transform(heights + done, heights + count, out + done, surface_code);
}

}  // namespace Synthesis
#endif
