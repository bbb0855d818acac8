#include "drive/paddle_bands.h"

#include <algorithm>

#include "base/compose.h"
#include "drive/front_sums.h"
#include "drive/harmonic_tile.h"

namespace Synthesis {

HarmonicBand band_of(const Maths::FrontSet& fronts, std::size_t end) {
  HarmonicBand band;
  for (std::size_t h = 0; h < std::min(end, fronts.slots.size()); ++h) {
    if (fronts.slots[h].empty()) continue;
    if (band.count == 0) band.first = h;
    band.count = h + 1 - band.first;
  }
  return band;
}

void fill_bands(const PaddleRow& row, const Maths::FrontSet& fronts,
                const std::function<PaddleHarmonic(std::size_t)>& harmonic, std::size_t samples,
                const HarmonicBand& band, std::vector<std::vector<double>>& bands) {
  FrontSums sums(row);
  HarmonicTile tile(sums.padded());
  std::size_t written = 0;
  // Writes all harmonics of the band below `end`, at least.
  const auto write_below = [&](std::size_t end) {
    while (written < std::min(end, band.count)) {
      const std::size_t rows = std::min(HarmonicTile::height, band.count - written);
      tile.write(rows, written, bands);
      tile.clear();
      written += rows;
    }
  };

  for (std::size_t h = 0; h < fronts.slots.size(); ++h) {
    const std::vector<Maths::HarmonicFront>& slot = fronts.slots[h];
    if (slot.empty()) continue;
    const PaddleHarmonic common = harmonic(h);
    if (h > samples) {
      // Hosts rely on this message for a rate that is far too low.
      if (std::any_of(slot.begin(), slot.end(), [&](const Maths::HarmonicFront& front) {
            return reaches(row, common, front);
          })) {
        throw Base::compose("Index ", h, " out of range");
      }
      continue;
    }
    const std::size_t place = h - band.first;
    if (place < band.count) {
      write_below(place / HarmonicTile::height * HarmonicTile::height);
      sums.add(common, slot, tile.row(place - written));
    } else {
      // Cannot be sampled. Huge sums are reported nevertheless.
      write_below(band.count);
      tile.clear();
      sums.add(common, slot, tile.row(0));
    }
  }
  write_below(band.count);
}

}  // namespace Synthesis
