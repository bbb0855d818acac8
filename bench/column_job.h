// A tank and its waves, for measurements of animations and of points.
#ifndef KELPBOX_BENCH_COLUMN_JOB_H_
#define KELPBOX_BENCH_COLUMN_JOB_H_

#include <cmath>
#include <cstddef>
#include <cstdint>
#include <string>
#include <utility>
#include <vector>

#include "base/params.h"
#include "maths/front_set.h"
#include "maths/run_data.h"
#include "maths/tank_config.h"

namespace Bench {

struct ColumnJob {
  static constexpr double rate = 100.0;  // Hz, as are the limits
  static constexpr double lowest = 0.3;
  static constexpr double highest = 2.5;

  std::size_t samples;
  std::size_t fronts;      // of each harmonic
  std::size_t pieces = 1;  // of the bottom, which slopes if there are several
  std::size_t columns = 101;
  std::size_t rows = 61;

  bool straight() const { return fronts == 1; }
};

// A job with its tank and fronts, made once.
struct PreparedColumns {
  explicit PreparedColumns(const ColumnJob& job) {
    tank.g = 9.81;
    tank.paddle_depth = 1.0;
    const double rise = job.pieces > 1 ? 0.5 : 0.0;
    for (std::size_t i = 0; i <= job.pieces; ++i) {
      const double part = static_cast<double>(i) / static_cast<double>(job.pieces);
      tank.profile.push_back({1.0 - rise * part, 20.0 * part});
    }
    tank.x_high = tank.profile.back().x;
    run.init(static_cast<double>(job.samples) / ColumnJob::rate, ColumnJob::rate, ColumnJob::lowest,
             ColumnJob::highest, false);
    fronts.reset(run.size());
    for (std::uint64_t h = run.min_harmonic(); h <= run.max_harmonic(); ++h) {
      for (std::size_t i = 0; i < job.fronts; ++i) {
        const double s = static_cast<double>(h * job.fronts + i);
        fronts.append(h, {5e-4, job.straight() ? 0.0 : 0.7 * std::sin(s), s});
        ++terms;
      }
    }
  }

  Maths::TankConfig tank;
  Maths::RunData run;
  Maths::FrontSet fronts;
  std::size_t terms = 0;  // fronts of all harmonics
};

// The grid of an animation.
inline Base::Params column_grid(const ColumnJob& job) {
  Base::Params params;
  params.insert("rate", ColumnJob::rate, "Hz");
  const std::vector<std::pair<std::string, double>> lengths = {
      {"x_min", 0.0}, {"x_max", 20.0}, {"x_step", 20.0 / static_cast<double>(job.columns - 1)},
      {"y_min", 0.0}, {"y_max", 6.0},  {"y_step", 6.0 / static_cast<double>(job.rows - 1)}};
  for (const auto& [name, value] : lengths) params.insert(name, value, "m");
  return params;
}

}  // namespace Bench

#endif  // KELPBOX_BENCH_COLUMN_JOB_H_
