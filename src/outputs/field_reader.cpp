#include "outputs/field_reader.h"

#include <algorithm>

#include "outputs/cannot_read.h"

namespace Outputs {
namespace {

// Holds the chunks of 32 frames of up to 800,000 points, so that each is unpacked once.
constexpr std::size_t most_kept = 52'000'000;
constexpr std::size_t largest_block = 8'000'000;  // bytes

}  // namespace

FieldReader::FieldReader(const PageSource& source, std::size_t frames, const FieldAxis& x,
                         const FieldAxis& y)
    : file_(source.path("field.nc"), source.shown("field.nc")),
      x_(x),
      y_(y),
      eta_(file_.variable("eta", {frames, y.count, x.count})),
      scale_(file_.attribute(eta_, "scale_factor")) {
  if (!(scale_ > 0.0))
    throw CannotRead{source.shown("field.nc") + ": its scale_factor is not positive"};
  file_.keep_chunks(eta_, most_kept);
}

std::vector<std::int16_t> FieldReader::frame(std::size_t index) {
  std::vector<std::int16_t> counts(points());
  file_.read(eta_, {index, 0, 0}, {1, y_.count, x_.count}, counts.data());
  return counts;
}

void FieldReader::each_frame(std::size_t first, std::size_t last, const Frame& call) {
  const std::size_t most =
      std::max<std::size_t>(1, largest_block / (sizeof(std::int16_t) * points()));
  std::vector<std::int16_t> block;
  for (std::size_t from = first; from < last; from += most) {
    const std::size_t count = std::min(most, last - from);
    block.resize(count * points());
    file_.read(eta_, {from, 0, 0}, {count, y_.count, x_.count}, block.data());
    for (std::size_t i = 0; i < count; ++i) call(from + i, block.data() + i * points());
  }
}

}  // namespace Outputs
