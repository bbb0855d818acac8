#include "jobs/made_surface.h"

#include <cmath>
#include <cstdint>

#include "base/constants.h"
#include "maths/tank_run.h"

namespace Jobs {

std::vector<std::complex<double>> made_surface(const std::vector<Synthesis::Front>& merged,
                                               const WavePath& path, double x, double y) {
  Maths::TankRun tank(path.tank, path.run);
  std::vector<std::complex<double>> surface(path.run.size());
  const double repeat = path.run.value();
  for (const Synthesis::Front& front : merged) {
    const auto harmonic = static_cast<std::uint64_t>(std::llround(front.freq * repeat));
    if (front.amp == 0.0 || harmonic >= surface.size()) continue;
    const double made = paddle_shares(path, harmonic, front.angle).made;
    const double a = front.amp * tank.shoaling(harmonic, x) * std::sqrt(made);
    const double phase = front.phase - tank.phase_lag(harmonic, x, y, front.angle);
    if (std::isfinite(a) && std::isfinite(phase)) surface[harmonic] += std::polar(1.0, phase) * a;
  }
  return surface;
}

double elevation(const std::vector<std::complex<double>>& surface, double repeat, double time) {
  double sum = 0.0;
  for (std::size_t h = 0; h < surface.size(); ++h) {
    const double turn = Base::TwoPi * std::fmod(static_cast<double>(h) * time / repeat, 1.0);
    sum += (surface[h] * std::polar(1.0, turn)).real();
  }
  return sum;
}

}  // namespace Jobs
