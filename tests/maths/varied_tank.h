// A tank of varying depth.
#ifndef KELPBOX_TESTS_MATHS_VARIED_TANK_H_
#define KELPBOX_TESTS_MATHS_VARIED_TANK_H_

#include <numbers>
#include <string>

#include "maths/dispersion.h"
#include "maths/tank_run.h"

inline constexpr double pi = std::numbers::pi;
inline constexpr double g = 9.81;

// Harmonics 1 to 40 of 10 s.
inline Maths::RunData grid() {
  Maths::RunData run;
  run.init(10.0, 100.0, 0.1, 4.0, false);
  return run;
}

// From x = -5 a slope to 1 m of water at the paddles, 1 m to x = 4, a slope to 0.5 m at x = 10,
// then a step down to 0.8 m.
inline Maths::TankConfig varied() {
  Maths::TankConfig tank;
  tank.g = g;
  tank.x_low = -5.0;
  tank.x_high = 20.0;
  tank.profile = {{0.4, -5.0}, {1.0, 0.0},  {1.0, 0.0},  {1.0, 4.0},
                  {1.0, 4.0},  {0.5, 10.0}, {0.8, 10.0}, {0.8, 20.0}};
  tank.paddle_index = 2;
  tank.paddle_depth = 1.0;
  return tank;
}

inline Maths::TankRun varied_run() { return {varied(), grid()}; }

// The library's wave number of harmonic 10, 1 Hz, which dispersion_test.cpp proves.
inline double k_of(double depth) { return Maths::knum(2 * pi, depth, g); }

inline std::string outside(const std::string& x) {
  return "Value x=" + x + " is outside dimensions of tank";
}

#endif  // KELPBOX_TESTS_MATHS_VARIED_TANK_H_
