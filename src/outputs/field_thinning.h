// How a wave field comes down to what a page can hold.
#ifndef KELPBOX_OUTPUTS_FIELD_THINNING_H_
#define KELPBOX_OUTPUTS_FIELD_THINNING_H_

#include <cstddef>

#include "outputs/field_frames.h"
#include "outputs/page_facts.h"

namespace Outputs {

// Keeps every x-th and y-th point of every time-th frame, and so many frames at most.
struct FieldThinning {
  std::size_t x = 1;
  std::size_t y = 1;
  std::size_t time = 1;
  std::size_t most_frames = 0;
};

// Thins in space as long as 8 points per wave length of the peak remain, then in time as long as
// 10 frames per period remain, each no more than it takes for `most_values`. What is still too much
// is left to a shorter time; frames that are too large by themselves are thinned in space again.
FieldThinning field_thinning(const FieldAxis& x, const FieldAxis& y, std::size_t frames,
                             double rate, const PageFacts& facts, std::size_t most_values);

// The first frame of a stretch of `kept` frames in steps of `every`, with the wanted frame about in
// the middle.
std::size_t first_frame(std::size_t frames, std::size_t kept, std::size_t every,
                        std::size_t wanted);

}  // namespace Outputs

#endif  // KELPBOX_OUTPUTS_FIELD_THINNING_H_
