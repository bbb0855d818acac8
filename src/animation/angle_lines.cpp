#include "animation/angle_lines.h"

#include <sstream>
#include <utility>

#include "base/streams.h"

namespace Synthesis {

AngleLines::AngleLines(const Maths::FrontSet& fronts, std::size_t top, FrontAngles angles)
    : out_(Base::progress()) {
  if (angles == FrontAngles::hidden) return;
  std::ostringstream text;
  text.copyfmt(out_);
  text.exceptions(std::ios_base::badbit);  // or lines that do not fit into memory would be missing
  for (std::size_t h = 0; h < top; ++h) {
    for (const Maths::HarmonicFront& front : fronts.slots[h]) text << front.angle << '\n';
  }
  text_ = std::move(text).str();
}

AngleLines::Column::Column(AngleLines& lines, const AnimationFrames& frames)
    : lines_(lines), frames_(frames), lock_(lines.mutex_) {}

AngleLines::Column::~Column() { lines_.out_.flush(); }

void AngleLines::Column::write(std::size_t count) {
  const std::string& text = lines_.text_;
  for (; count != 0 && place_ != text.size() && frames_.running(); --count) {
    const std::size_t end = text.find('\n', place_) + 1;
    lines_.out_.write(text.data() + place_, static_cast<std::streamsize>(end - place_));
    place_ = end;
  }
}

}  // namespace Synthesis
