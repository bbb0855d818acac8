// The spectra of the paddles of a bank, for the band of harmonics in which there are fronts.
#ifndef KELPBOX_DRIVE_PADDLE_BANDS_H_
#define KELPBOX_DRIVE_PADDLE_BANDS_H_

#include <cstddef>
#include <functional>
#include <vector>

#include "base/executor.h"
#include "drive/paddle_spectrum.h"
#include "maths/front_set.h"

namespace Synthesis {

// Harmonics from `first` to `first` + `count` - 1.
struct HarmonicBand {
  std::size_t first = 0;
  std::size_t count = 0;
};

// The band from the first to the last harmonic with fronts, below `end`.
HarmonicBand band_of(const Maths::FrontSet& fronts, std::size_t end);

// Fills `bands`, one for each paddle, with the real and imaginary parts of the harmonics of the
// band. `harmonic` is called for each harmonic with fronts, in or out of the band. Throws what it
// throws, and std::string "Index N out of range" for a front above harmonic `samples` that a paddle
// makes. What is written to the standard output stream keeps its order for any number of workers.
void fill_bands(const PaddleRow& row, const Maths::FrontSet& fronts,
                const std::function<PaddleHarmonic(std::size_t)>& harmonic, std::size_t samples,
                const HarmonicBand& band, const Base::Executor& executor,
                std::vector<std::vector<double>>& bands);

}  // namespace Synthesis

#endif  // KELPBOX_DRIVE_PADDLE_BANDS_H_
