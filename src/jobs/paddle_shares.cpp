#include "jobs/paddle_shares.h"

#include <algorithm>
#include <cmath>
#include <numeric>

#include "base/constants.h"
#include "drive/paddle_spectrum.h"
#include "maths/dispersion.h"

namespace Jobs {

PaddleShares paddle_shares(const WavePath& path, std::uint64_t harmonic, double angle) {
  PaddleShares shares;
  shares.withheld.assign(path.banks.size(), 0.0);
  if (harmonic > path.last_harmonic) {
    shares.above_half_rate = 1.0;
    return shares;
  }
  if (path.banks.empty()) {
    shares.made = 1.0;
    return shares;
  }
  const double k =
      Maths::knum(Base::TwoPi * path.run.freq(harmonic), path.tank.paddle_depth, path.tank.g);

  double total = 0.0;
  for (std::size_t b = 0; b < path.banks.size(); ++b) {
    const BankFaces& bank = path.banks[b];
    const Synthesis::PaddleHarmonic limit(k, 1.0, bank.width);
    for (const auto& [normal, count] : bank.normals) {
      const double flux = static_cast<double>(count) * bank.width * std::cos(angle - normal);
      if (!(flux > 0.0)) continue;
      total += flux;
      if (std::fabs(angle - normal) > limit.max_offset) shares.withheld[b] += flux;
    }
  }
  constexpr double grazing = 1e-9;  // of a paddle's width
  if (!(total > grazing)) {
    shares.withheld.assign(path.banks.size(), 0.0);
    shares.behind = 1.0;
    return shares;
  }
  for (double& share : shares.withheld) share /= total;
  shares.made =
      std::max(1.0 - std::accumulate(shares.withheld.begin(), shares.withheld.end(), 0.0), 0.0);
  return shares;
}

}  // namespace Jobs
