// The frames of a job's field.
#ifndef KELPBOX_OUTPUTS_FIELD_FRAMES_H_
#define KELPBOX_OUTPUTS_FIELD_FRAMES_H_

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

#include "jobs/run.h"
#include "outputs/progress.h"

namespace Outputs {

struct FieldAxis {
  double from = 0.0;  // m
  double step = 0.0;  // as fitted
  std::size_t count = 0;
};

// Builds the frames in the library, and frees them at the end of its life.
class FieldFrames {
 public:
  // Throws Cancelled, and BadJob when the library refuses the field.
  FieldFrames(Jobs::Run& run, const Progress& progress);
  ~FieldFrames();
  FieldFrames(const FieldFrames&) = delete;
  FieldFrames& operator=(const FieldFrames&) = delete;

  double rate() const { return rate_; }  // Hz, as fitted
  std::size_t frames() const { return frames_; }
  const FieldAxis& x() const { return x_; }
  const FieldAxis& y() const { return y_; }
  const std::vector<std::string>& remarks() const { return remarks_; }
  // The code of the point (x, y) is element y().count * x + y (docs/animation.md).
  const std::vector<std::int16_t>& frame(std::size_t index) const;

 private:
  void init();
  void build_columns(const Progress& progress);
  void release() noexcept;

  Jobs::Run& run_;
  double rate_ = 0.0;
  std::size_t frames_ = 0;
  FieldAxis x_;
  FieldAxis y_;
  std::vector<std::string> remarks_;
};

}  // namespace Outputs

#endif  // KELPBOX_OUTPUTS_FIELD_FRAMES_H_
