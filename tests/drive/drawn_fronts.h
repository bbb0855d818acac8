// Drawn fronts for drive signals.
#ifndef KELPBOX_TESTS_DRIVE_DRAWN_FRONTS_H_
#define KELPBOX_TESTS_DRIVE_DRAWN_FRONTS_H_

#include <cstddef>
#include <cstdint>
#include <numbers>
#include <random>

#include "maths/front_set.h"

namespace Testing {

// `each` fronts of at most `amp` in the harmonics from `first` to `last`, except every fifth one.
inline Maths::FrontSet fronts_between(std::uint64_t first, std::uint64_t last, std::size_t each,
                                      double amp = 0.01) {
  std::mt19937 random(5);
  std::uniform_real_distribution<double> unit(-1.0, 1.0);
  Maths::FrontSet set;
  set.reset(last + 1);
  for (std::uint64_t h = first; h <= last; ++h) {
    if (h % 5 == 4) continue;
    for (std::size_t i = 0; i < each; ++i) {
      set.slots[h].push_back(
          {amp * unit(random), 0.8 * unit(random), std::numbers::pi * unit(random)});
    }
  }
  return set;
}

}  // namespace Testing

#endif  // KELPBOX_TESTS_DRIVE_DRAWN_FRONTS_H_
