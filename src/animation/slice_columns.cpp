#include "animation/slice_columns.h"

#include <cstddef>
#include <vector>

namespace Synthesis {

std::uint64_t SliceColumns::copied(const Maths::FrontSet& fronts) {
  const std::size_t count = fronts.slots.size();
  return Maths::front_memory(fronts, 0, count) + count * sizeof(std::vector<Maths::HarmonicFront>);
}

SliceColumns::SliceColumns(const Maths::FrontSet& fronts, const AnimationGrid& grid,
                           const Maths::TankConfig& tank, const Maths::RunData& run,
                           AnimationFrames& frames)
    : fronts_(fronts),
      grid_(grid),
      tank_(tank),
      run_(run),
      frames_(frames),
      build_(fronts_, grid_, tank_, run_, frames_, FrontAngles::hidden),
      columns_(build_) {}

bool SliceColumns::made_for(const Maths::FrontSet& fronts, const Maths::TankConfig& tank,
                            const Maths::RunData& run) const {
  return fronts.slots == fronts_.slots && tank == tank_ && run == run_;
}

void SliceColumns::build(std::uint32_t from, std::uint32_t to) {
  for (std::uint32_t ix = from; ix < to && frames_.running(); ++ix) columns_.build(ix);
}

}  // namespace Synthesis
