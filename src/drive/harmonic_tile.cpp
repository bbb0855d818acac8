#include "drive/harmonic_tile.h"

#include <algorithm>

namespace Synthesis {

void HarmonicTile::write(std::size_t rows, std::size_t first,
                         std::vector<std::vector<double>>& bands) const {
  for (std::size_t p = 0; p < bands.size(); ++p) {
    double* out = bands[p].data() + 2 * first;
    for (std::size_t r = 0; r < rows; ++r) {
      out[2 * r] = real_[r * width_ + p];
      out[2 * r + 1] = imaginary_[r * width_ + p];
    }
  }
}

void HarmonicTile::clear() {
  std::fill(real_.begin(), real_.end(), 0.0);
  std::fill(imaginary_.begin(), imaginary_.end(), 0.0);
}

}  // namespace Synthesis
