// Fronts in a tank, and the wave that they make at a point.
#ifndef KELPBOX_TESTS_POINT_TEST_WAVES_H_
#define KELPBOX_TESTS_POINT_TEST_WAVES_H_

#include "base/vector.h"
#include "maths/front_set.h"
#include "maths/run_data.h"
#include "maths/tank_run.h"
#include "point/surface_point.h"

namespace Testing {

// Harmonics 1 to 20 of 10 s.
inline Maths::RunData grid() {
  Maths::RunData run;
  run.init(10.0, 20.0, 0.1, 2.0, false);
  return run;
}

// Fronts at the paddle line, and the tank that they enter: 1 m deep, or on request with a slope to
// 0.5 m from x = 5 to x = 10 with 0.4 m of water on the other side of the paddles.
struct Waves {
  explicit Waves(bool slope = false) {
    tank.g = 9.81;
    tank.x_low = slope ? -5.0 : 0.0;
    tank.x_high = 20.0;
    tank.paddle_depth = 1.0;
    tank.profile = {{1.0, 0.0}, {1.0, 20.0}};
    if (slope) {
      tank.profile = {{0.4, -5.0}, {1.0, 0.0},  {1.0, 0.0}, {1.0, 5.0},
                      {1.0, 5.0},  {0.5, 10.0}, {0.5, 20.0}};
      tank.paddle_index = 2;
    }
    fronts.reset(grid().size());
  }

  Base::Cvector surface(const Synthesis::PointSpec& point) {
    Base::Cvector out;
    Maths::TankRun run(tank, grid());
    Synthesis::surface_at(out, fronts, run, point);
    return out;
  }
  Base::Vector directions(const Synthesis::PointSpec& point) {
    Base::Vector out;
    Maths::TankRun run(tank, grid());
    Synthesis::direction_at(out, fronts, run, point);
    return out;
  }
  // The direction of a single front in harmonic 8.
  double direction(double angle, const Synthesis::PointSpec& point) {
    fronts.slots[8] = {{0.04, angle, 0.7}};
    return directions(point).data.at(8);
  }

  Maths::TankConfig tank;
  Maths::FrontSet fronts;
};

}  // namespace Testing

#endif  // KELPBOX_TESTS_POINT_TEST_WAVES_H_
