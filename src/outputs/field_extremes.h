// The highest crest and the steepest slope of a wave field.
#ifndef KELPBOX_OUTPUTS_FIELD_EXTREMES_H_
#define KELPBOX_OUTPUTS_FIELD_EXTREMES_H_

#include <cstddef>
#include <cstdint>
#include <vector>

#include "outputs/field_frames.h"

namespace Outputs {

struct FieldPlace {
  std::size_t frame = 0;
  std::size_t x = 0;  // index of the point
  std::size_t y = 0;
};

// Takes the frames one by one. The first one counts where several are equal. Points without a
// height are passed over.
class FieldExtremes {
 public:
  // `scale` in m of one count.
  FieldExtremes(const FieldAxis& x, const FieldAxis& y, double scale);

  // The counts of a frame by rows of equal y.
  void add(std::size_t frame, const std::int16_t* counts);

  bool any() const { return any_; }
  std::int16_t lowest() const { return lowest_; }
  std::int16_t highest() const { return highest_; }
  const FieldPlace& crest() const { return crest_; }

  // The magnitude of the gradient from a point to its next neighbours in x and y, of which at least
  // one must be there. 0 if the surface is flat.
  double slope() const { return slope_; }
  const FieldPlace& steepest() const { return steepest_; }

 private:
  void add_heights(std::size_t frame, const std::int16_t* counts);
  void add_slopes(std::size_t frame, std::size_t row, const std::int16_t* counts);

  std::size_t columns_;
  std::size_t rows_;
  double per_x_;  // slope of one count between neighbours; 0 without neighbours
  double per_y_;
  bool any_ = false;
  std::int16_t lowest_ = 0;
  std::int16_t highest_ = 0;
  FieldPlace crest_;
  double slope_ = 0.0;
  FieldPlace steepest_;
  std::vector<double> squares_;  // of the slopes in a row
};

}  // namespace Outputs

#endif  // KELPBOX_OUTPUTS_FIELD_EXTREMES_H_
