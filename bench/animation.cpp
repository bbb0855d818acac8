// Times a whole animation against the same frames made point by point. The plain way takes a sine
// and a cosine of each front at each point, plans a transform for each point, and stores one value
// in each frame. Both run on the same machine one after the other, so only the ratio of the times
// is reported.
#include <algorithm>
#include <chrono>
#include <cmath>
#include <cstdlib>
#include <iomanip>
#include <iostream>
#include <sstream>
#include <vector>

#include "animation/animate.h"
#include "animation/surface_code.h"
#include "base/data_set.h"
#include "base/units.h"
#include "maths/tank_run.h"

namespace {

struct Job {
  const char* name;
  double repeat;  // s
  double rate;    // Hz
  std::size_t fronts_per_harmonic;
  bool oblique;
};

// 20 m long, with a bottom that rises from 1.0 m to 0.6 m of depth.
Maths::TankConfig tank() {
  Maths::TankConfig config;
  config.g = 9.81;
  config.x_high = 20.0;
  config.paddle_depth = 1.0;
  for (int i = 0; i <= 20; ++i) config.profile.push_back({1.0 - 0.02 * i, 1.0 * i});
  return config;
}

Maths::FrontSet sea(const Job& job, const Maths::RunData& run) {
  Maths::FrontSet set;
  set.reset(run.size());
  for (std::uint64_t h = run.min_harmonic(); h <= run.max_harmonic(); ++h) {
    for (std::size_t i = 0; i < job.fronts_per_harmonic; ++i) {
      const double s = static_cast<double>(h * job.fronts_per_harmonic + i);
      set.add_front(h, {0.002, job.oblique ? 0.7 * std::sin(s) : 0.0, s});
    }
  }
  return set;
}

Base::Params grid(const Job& job) {
  Base::Params params;
  params.insert("rate", job.rate, "Hz");
  params.insert("x_min", 0.0, "m");
  params.insert("x_max", 20.0, "m");
  params.insert("x_step", 0.5, "m");
  params.insert("y_min", 0.0, "m");
  params.insert("y_max", 20.0, "m");
  params.insert("y_step", 0.1, "m");
  return params;
}

using Frames = std::vector<std::vector<std::int16_t>>;

// The plain reference.
Frames point_by_point(const Maths::FrontSet& fronts, Maths::TankRun& tank_run,
                      const Synthesis::AnimationGrid& grid, const Job& job) {
  Frames frames(grid.samples, std::vector<std::int16_t>(std::size_t{grid.x.count} * grid.y.count));
  const Base::Quantity rate(job.rate, Base::Category::frequency);
  const Base::Cvector pattern("freq", Base::default_units(Base::Category::length),
                              std::vector<std::complex<double>>(grid.samples));
  for (std::uint32_t ix = 0; ix < grid.x.count; ++ix) {
    std::vector<Base::Cvector> rows(grid.y.count, pattern);
    for (std::size_t h = 0; h < fronts.slots.size(); ++h) {
      if (fronts.slots[h].empty()) continue;
      const double s = tank_run.shoaling(h, grid.x.at(ix));
      const double k0 = tank_run.wave_num_at(h, 0.0);
      for (const Maths::HarmonicFront& front : fronts.slots[h]) {
        const double lag = tank_run.phase_lag(h, grid.x.at(ix), 0.0, front.angle);
        const double sn = std::sin(front.angle);
        for (std::uint32_t iy = 0; iy < grid.y.count; ++iy) {
          const double psi = front.phase - (grid.y.at(iy) * sn * k0 + lag);
          rows[iy].data[h] += s * front.amp * std::complex<double>(std::cos(psi), std::sin(psi));
        }
      }
    }
    for (std::uint32_t iy = 0; iy < grid.y.count; ++iy) {
      Base::DataSet series(rows[iy], rate);
      const std::vector<double>& heights = series.time().data;
      for (std::size_t t = 0; t < heights.size(); ++t) {
        frames[t][grid.y.count * ix + iy] = Synthesis::surface_code(heights[t]);
      }
    }
  }
  return frames;
}

template <typename Work>
double seconds(Work work) {
  const auto start = std::chrono::steady_clock::now();
  work();
  return std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
}

void compare(const Job& job) {
  constexpr double base_rate = 100.0;  // Hz, as are the limits
  constexpr double min_freq = 0.3;
  constexpr double max_freq = 1.5;
  constexpr bool dalrymple = false;
  Maths::RunData run;
  run.init(job.repeat, base_rate, min_freq, max_freq, dalrymple);
  const Maths::TankConfig config = tank();
  const Maths::FrontSet fronts = sea(job, run);
  Maths::TankRun tank_run(config, run);
  Base::Params params = grid(job);
  const Synthesis::AnimationGrid points = Synthesis::fit_grid(run, params);

  Frames frames;
  const double plain = seconds([&] { frames = point_by_point(fronts, tank_run, points, job); });
  // Hides the lines with angles that a build writes.
  std::ostringstream angles;
  std::streambuf* const terminal = std::cout.rdbuf(angles.rdbuf());
  Synthesis::Animate animate;
  const double fast = seconds([&] { animate.build(fronts, config, run, params); });
  std::cout.rdbuf(terminal);

  int largest = 0;
  for (std::uint32_t t = 0; t < points.samples; ++t) {
    const std::vector<std::int16_t>& frame = animate.frames().data(t);
    for (std::size_t i = 0; i < frame.size(); ++i) {
      largest = std::max(largest, std::abs(frame[i] - frames[t][i]));
    }
  }
  std::cout << job.name << ": " << points.x.count << " x " << points.y.count << " x "
            << points.samples << " samples, " << std::setprecision(3) << plain / fast
            << " times as fast, largest difference " << largest << " counts\n";
}

}  // namespace

int main() {
  compare({"short-crested sea", 100.0, 10.0, 3, true});
  compare({"long record", 204.8, 20.0, 1, true});
  compare({"straight sea", 204.8, 20.0, 1, false});
}
