// The complex amplitudes that a row of paddles needs for the fronts of one harmonic.
//
// Each sum is within 1e-12 of that by the plain formula of paddle_spectrum.h, relative to the sum
// of the magnitudes of its terms: terms that cancel leave only their rounding. Fronts are added in
// their order.
#ifndef KELPBOX_DRIVE_FRONT_SUMS_H_
#define KELPBOX_DRIVE_FRONT_SUMS_H_

#include <cstddef>
#include <span>
#include <vector>

#include "drive/paddle_spectrum.h"
#include "drive/paddle_terms.h"
#include "maths/front.h"

namespace Synthesis {

// For one thread at a time. A copy has working memory of its own.
class FrontSums {
 public:
  explicit FrontSums(PaddleRow row);

  // The length of the arrays of sums: the number of paddles, rounded up to whole groups.
  std::size_t padded() const { return row_.x.size(); }

  // Whether `add` may write to the standard output stream.
  bool may_report(const PaddleHarmonic& harmonic,
                  std::span<const Maths::HarmonicFront> fronts) const;
  // Adds the fronts to the sums. A sum that becomes larger than 1e10 is written to the standard
  // output stream each time that a front is added to it, followed by ":" and no line end.
  void add(const PaddleHarmonic& harmonic, std::span<const Maths::HarmonicFront> fronts,
           SumArrays sums);

 private:
  void add_unreported(const PaddleHarmonic& harmonic, std::span<const Maths::HarmonicFront> fronts,
                      SumArrays sums);
  // By the plain formula, one paddle after the other. Hosts see the digits of these sums, also of a
  // part that is nothing but the rounding of the other.
  void add_reported(const PaddleHarmonic& harmonic, const Maths::HarmonicFront& front,
                    SumArrays sums) const;
  void collect(const PaddleHarmonic& harmonic, std::span<const Maths::HarmonicFront> fronts);
  void find_gains(const PaddleHarmonic& harmonic);
  void find_steps(const PaddleHarmonic& harmonic);

  std::size_t paddles_;
  PaddleRow row_;  // padded
  std::vector<double> normal_cosines_;
  std::vector<double> normal_sines_;
  bool straight_ = true;  // all paddles face the same way
  double dx_ = 0.0;       // from one paddle to the next, if the row is even
  double dy_ = 0.0;
  double extent_ = 0.0;      // m, the largest coordinate
  double unevenness_ = 0.0;  // m, how far even positions are off, with their rounding

  // The fronts that are added, and scratch arrays beside them.
  std::vector<FrontTerm> terms_;
  std::vector<double> angles_;
  std::vector<double> sines_;
  std::vector<double> cosines_;
};

}  // namespace Synthesis

#endif  // KELPBOX_DRIVE_FRONT_SUMS_H_
