// The angle of each front, a line each, which a whole build writes to the standard output for each
// column.
#ifndef KELPBOX_ANIMATION_ANGLE_LINES_H_
#define KELPBOX_ANIMATION_ANGLE_LINES_H_

#include <cstddef>
#include <mutex>
#include <ostream>
#include <string>

#include "animation/animation_frames.h"
#include "maths/front_set.h"

namespace Synthesis {

enum class FrontAngles { hidden, shown };

class AngleLines {
 public:
  // For the fronts of the slots below `top`. There are no lines if the angles are hidden.
  AngleLines(const Maths::FrontSet& fronts, std::size_t top, FrontAngles angles);

  // The lines of one column. No other thread writes lines while it lasts, and its end flushes them:
  // flushing each line would cost more than the waves.
  class Column {
   public:
    // A stop of these frames ends the lines early.
    Column(AngleLines& lines, const AnimationFrames& frames);
    ~Column();
    Column(const Column&) = delete;
    Column& operator=(const Column&) = delete;

    // Writes the next `count` lines.
    void write(std::size_t count);
    void write_all() { write(lines_.text_.size()); }

   private:
    const AngleLines& lines_;
    const AnimationFrames& frames_;
    const std::lock_guard<std::mutex> lock_;
    std::size_t place_ = 0;
  };

 private:
  std::ostream& out_;  // of the thread that builds: the columns may be made by others
  std::string text_;
  std::mutex mutex_;
};

}  // namespace Synthesis

#endif  // KELPBOX_ANIMATION_ANGLE_LINES_H_
