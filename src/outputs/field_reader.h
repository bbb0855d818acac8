// The wave field of a folder of results.
#ifndef KELPBOX_OUTPUTS_FIELD_READER_H_
#define KELPBOX_OUTPUTS_FIELD_READER_H_

#include <cstddef>
#include <cstdint>
#include <functional>
#include <vector>

#include "outputs/field_frames.h"
#include "outputs/netcdf_reader.h"
#include "outputs/page_source.h"

namespace Outputs {

// The axes and the rate come from summary.json, the heights from field.nc. Every call may throw
// CannotRead.
class FieldReader {
 public:
  FieldReader(const PageSource& source, std::size_t frames, const FieldAxis& x, const FieldAxis& y);

  const FieldAxis& x() const { return x_; }
  const FieldAxis& y() const { return y_; }
  std::size_t points() const { return x_.count * y_.count; }
  double scale() const { return scale_; }  // m, of one count

  // One frame by rows of equal y.
  std::vector<std::int16_t> frame(std::size_t index);

  // Calls with each frame from `first` to `last` - 1 in order. Holds a few MB at a time.
  using Frame = std::function<void(std::size_t index, const std::int16_t* counts)>;
  void each_frame(std::size_t first, std::size_t last, const Frame& call);

 private:
  NetcdfReader file_;
  FieldAxis x_;
  FieldAxis y_;
  int eta_;
  double scale_;
};

}  // namespace Outputs

#endif  // KELPBOX_OUTPUTS_FIELD_READER_H_
