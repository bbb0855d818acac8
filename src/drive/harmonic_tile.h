// The sums of eight neighbouring harmonics for all paddles.
//
// Each paddle's spectrum is written through a tile, eight harmonics at once. Writing harmonics one
// by one would touch the memory of all paddles for each of them.
#ifndef KELPBOX_DRIVE_HARMONIC_TILE_H_
#define KELPBOX_DRIVE_HARMONIC_TILE_H_

#include <cstddef>
#include <vector>

#include "drive/paddle_terms.h"

namespace Synthesis {

class HarmonicTile {
 public:
  static constexpr std::size_t height = 8;

  // `width` is the length of a row of sums.
  explicit HarmonicTile(std::size_t width)
      : width_(width), real_(height * width), imaginary_(height * width) {}

  SumArrays row(std::size_t index) {
    return {real_.data() + index * width_, imaginary_.data() + index * width_};
  }
  // Writes `rows` rows to the bands of the paddles, as real and imaginary parts from harmonic
  // `first` of the band on.
  void write(std::size_t rows, std::size_t first, std::vector<std::vector<double>>& bands) const;
  // Sets all sums to 0.
  void clear();

 private:
  std::size_t width_;
  std::vector<double> real_;
  std::vector<double> imaginary_;
};

}  // namespace Synthesis

#endif  // KELPBOX_DRIVE_HARMONIC_TILE_H_
