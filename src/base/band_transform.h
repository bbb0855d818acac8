// Inverse transforms of one size, of spectra that are 0 outside one band of harmonics.
#ifndef KELPBOX_BASE_BAND_TRANSFORM_H_
#define KELPBOX_BASE_BAND_TRANSFORM_H_

#include <cstddef>
#include <memory>

namespace Base {

class BandTransform {
 public:
  // For the harmonics from `first` to `first` + `count` - 1, of which none is above samples / 2.
  BandTransform(std::size_t samples, std::size_t first, std::size_t count);
  ~BandTransform();
  BandTransform(const BandTransform& other);
  BandTransform& operator=(const BandTransform&) = delete;

  // Fills the samples from the band: a real and an imaginary part for each harmonic. Both arrays
  // are aligned as memory of a vector is, and may be the same.
  void run(const double* band, double* time);

 private:
  struct Work;
  std::unique_ptr<Work> work_;
};

}  // namespace Base

#endif  // KELPBOX_BASE_BAND_TRANSFORM_H_
