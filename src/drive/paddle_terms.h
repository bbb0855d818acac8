// The hot loops of the drive signals: the terms that wave fronts add to the complex amplitudes of
// the paddles of a row, with the vector instructions of the machine. paddle_spectrum.h has the
// formula.
//
// Rows and sums are padded to whole groups of paddles. All instruction sets give the same bits.
#ifndef KELPBOX_DRIVE_PADDLE_TERMS_H_
#define KELPBOX_DRIVE_PADDLE_TERMS_H_

#include <cstddef>

#include "drive/paddle_spectrum.h"

namespace Synthesis {

// The number of paddles in a group.
constexpr std::size_t paddle_group = 8;

// The paddles as arrays of `count` values, a multiple of paddle_group.
struct RowArrays {
  std::size_t count = 0;
  const double* x = nullptr;
  const double* y = nullptr;
  const double* normal = nullptr;
  const double* normal_cosine = nullptr;
  const double* normal_sine = nullptr;
};

// One front at one harmonic.
struct FrontTerm {
  double angle = 0.0;
  double cosine = 0.0;  // of the angle
  double sine = 0.0;
  double phase = 0.0;
  double amp = 0.0;
  double gain = 0.0;         // paddle motion, if the same for all paddles
  double step_cosine = 0.0;  // of the lag from one group to the next, if it is the same everywhere
  double step_sine = 0.0;
};

// The sums of a row.
struct SumArrays {
  double* real = nullptr;
  double* imaginary = nullptr;
};

// The obliquity factors of `count` offsets from the normal, not above max_offset.
void obliquity_factors(const double* offsets, std::size_t count, double kw, double* factors);

// Add the terms of `count` fronts, one front after the other.

// For paddles that all face the same way, with the gain of each front.
void add_straight_terms(const RowArrays& row, double k, const FrontTerm* fronts, std::size_t count,
                        SumArrays sums);
// The same for paddles that are evenly spaced. Groups follow each other by rotation, with a new
// sine and cosine after 64 groups.
void add_even_terms(const RowArrays& row, double k, const FrontTerm* fronts, std::size_t count,
                    SumArrays sums);
// For any paddles. Each has a gain of its own, and adds nothing beyond max_offset.
void add_turned_terms(const RowArrays& row, const PaddleHarmonic& harmonic, double width,
                      const FrontTerm* fronts, std::size_t count, SumArrays sums);

}  // namespace Synthesis

#endif  // KELPBOX_DRIVE_PADDLE_TERMS_H_
