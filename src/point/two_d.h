// The wave at one point of the tank: elevation, spectrum, variance density, and the share of the
// variance in each direction. The two dimensions are time and direction.
#ifndef KELPBOX_POINT_TWO_D_H_
#define KELPBOX_POINT_TWO_D_H_

#include <cstdint>
#include <vector>

#include "base/params.h"
#include "base/vector.h"
#include "maths/front_set.h"
#include "maths/run_data.h"
#include "maths/tank_run.h"
#include "point/surface_point.h"

namespace Synthesis {

// All results are empty before the first build. After a failed build, the results that it had not
// yet replaced are still those of the build before.
class TwoD {
 public:
  enum Data : std::int32_t { time, spectrum, variance, direction };

  // Reads "delta_angle", the width of a direction sector, and writes back the nearest width that
  // divides the circle. "rate" must be that of the point. Throws std::string "Value of delta_angle
  // too small" for 1e-6 rad or less, "delta_angle::<value> rad gives no usable number of direction
  // sectors" for NaN, "invalid vector<T> subscript" for sectors so wide that a direction falls into
  // none, and as surface_at and require_point_memory.
  void build(const Maths::FrontSet& fronts, Maths::TankRun& run, const PointSpec& point,
             Base::Params& params);
  // Valid until the next build. Throws std::string "Unknown option ot twod_data".
  const std::vector<double>& data(std::int32_t type) const;

 private:
  // Adds up the variance in each sector, without that of the mean, and scales the sum to 1.
  void share_out(const std::vector<double>& directions, std::int32_t sectors, double step);

  Base::Vector spectrum_;          // amplitudes in metres
  Base::Vector variance_;          // m2s
  Base::Vector time_;              // elevation over one repeat, metres
  std::vector<double> direction_;  // shares; entry b is centred b sectors from the x axis
};

// Reads "rate", "x" and "y". Fits the rate to a whole number of samples in the repeat time and
// writes it back. Throws std::string "Repeat time zero or less" and the messages of
// maths/sample_count.h.
PointSpec fit_point(Base::Params& params, const Maths::RunData& run);

// Throws std::string "rate::<value> Hz gives <samples> samples at the point, which need ... GiB of
// memory, ... GiB are available" unless that many bytes are available.
void require_point_memory(const Base::Params& params, const PointSpec& point, std::uint64_t bytes);

}  // namespace Synthesis

#endif  // KELPBOX_POINT_TWO_D_H_
