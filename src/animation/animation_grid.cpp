#include "animation/animation_grid.h"

#include <string>

#include "base/compose.h"
#include "base/units.h"
#include "maths/rounding.h"
#include "maths/sample_count.h"

namespace Synthesis {
namespace {

GridAxis fit_axis(Base::Params& params, const std::string& name, double step, double min,
                  double max) {
  const std::int32_t divisions = Maths::round_to_i32((max - min) / step);
  // This refuses NaN and counts that do not fit, too.
  if (divisions < 0) {
    throw Base::compose(name, "::", step, " m gives no usable grid from ", min, " m to ", max,
                        " m");
  }
  GridAxis axis;
  axis.min = min;
  axis.max = max;
  axis.step = (max - min) / divisions;
  axis.count = static_cast<std::uint32_t>(divisions) + 1;
  params.set_checked(name, axis.step, Base::Category::length, 0.1);
  return axis;
}

}  // namespace

AnimationGrid fit_grid(const Maths::RunData& run, Base::Params& params) {
  const double rate = params.read("rate", Base::Category::frequency);
  const double x_step = params.read("x_step", Base::Category::length);
  const double y_step = params.read("y_step", Base::Category::length);
  const double x_min = params.read("x_min", Base::Category::length);
  const double x_max = params.read("x_max", Base::Category::length);
  const double y_min = params.read("y_min", Base::Category::length);
  const double y_max = params.read("y_max", Base::Category::length);
  if (x_max <= x_min) throw std::string("x_max not greater than x_min");
  if (y_max <= y_min) throw std::string("y_max not greater than y_min");

  AnimationGrid grid;
  grid.x = fit_axis(params, "x_step", x_step, x_min, x_max);
  grid.y = fit_axis(params, "y_step", y_step, y_min, y_max);
  const double repeat = run.value();
  grid.samples = Maths::sample_count(repeat, rate);
  params.set_checked("rate", grid.samples / repeat, Base::Category::frequency, 0.01);
  return grid;
}

}  // namespace Synthesis
