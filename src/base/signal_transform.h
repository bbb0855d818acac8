// Inverse transforms of many signals of one length, whose harmonics lie in one band: by the plain
// transform, or for awkward lengths by convolution with a chirp.
#ifndef KELPBOX_BASE_SIGNAL_TRANSFORM_H_
#define KELPBOX_BASE_SIGNAL_TRANSFORM_H_

#include <cstddef>
#include <cstdint>
#include <optional>

#include "base/band_transform.h"
#include "base/chirp_transform.h"
#include "base/fft.h"

namespace Base {

class SignalTransform {
 public:
  // Whether the transforms are convolutions. Those are longer than the signals, and none is longer
  // than a transform can be.
  static bool takes_chirp(std::size_t samples, std::size_t first, std::size_t count);

  // An upper bound for the bytes that it needs.
  static std::uint64_t memory(std::size_t samples, std::size_t first, std::size_t count);

  // For the harmonics from `first` to `first` + `count` - 1, of which none is above samples / 2.
  // Throws as the transforms of fft.h. A copy shares the plan and the tables and has working memory
  // of its own.
  SignalTransform(std::size_t samples, std::size_t first, std::size_t count);

  // Replaces a band by its samples. The band is a real and an imaginary part for each harmonic.
  void run(double* signal);
  // The same for two signals. Faster than one by one for some lengths.
  void run(double* a, double* b);

 private:
  // False for NaN and infinity.
  bool cannot_overflow(const double* band) const;

  std::size_t samples_;
  std::size_t first_;
  std::size_t count_;
  // Also takes the signals that have or may get infinity or NaN, so that those are at the same
  // samples whatever the length.
  std::optional<BandTransform> plain_;
  std::optional<ChirpTransform> chirp_;
};

}  // namespace Base

#endif  // KELPBOX_BASE_SIGNAL_TRANSFORM_H_
