// What the wave will be at one point of the tank: time history, spectrum, variance density, and
// the share of the variance in each direction. Two dimensions: time and direction.
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

// Empty before the first build. A build that fails leaves what it had not yet replaced.
class TwoD {
 public:
  enum Data : std::int32_t { time, spectrum, variance, direction };

  // Reads "delta_angle", the width of a direction sector, and writes back the width that divides
  // the circle. The rate of the parameters must be the point's. Throws std::string "Value of
  // delta_angle too small" for 1e-6 rad or less, "delta_angle::..." for no number, "invalid
  // vector<T> subscript" for so few sectors that a direction falls into none of them; and
  // what prove_point_memory throws.
  void build(const Maths::FrontSet& fronts, Maths::TankRun& run, const PointSpec& point,
             Base::Params& params);
  // Valid until the next build. Throws std::string "Unknown option ot twod_data".
  const std::vector<double>& data(std::int32_t type) const;

 private:
  // Sorts the variance by direction, all of it but the mean's.
  void share_out(const std::vector<double>& directions, std::int32_t sectors, double step);

  Base::Vector spectrum_;          // amplitudes in metres
  Base::Vector variance_;          // m2s
  Base::Vector time_;              // elevation over one repeat, metres
  std::vector<double> direction_;  // entry b is centred at b sectors from the x axis
};

// Reads "rate", "x" and "y". The rate is fitted to whole samples of the repeat time and written
// back. Throws std::string "Repeat time zero or less" and the texts of sample_count.h.
PointSpec fit_point(Base::Params& params, const Maths::RunData& run);

// Refuses work at a point that needs more bytes than the machine has. Throws std::string
// "rate::<value> Hz gives <samples> samples at the point, which need ... GiB of memory, ... GiB are
// available".
void prove_point_memory(const Base::Params& params, const PointSpec& point, std::uint64_t bytes);

}  // namespace Synthesis

#endif  // KELPBOX_POINT_TWO_D_H_
