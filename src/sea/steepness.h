// How steep a time signal is, and how well it joins at the repeat time.
#ifndef KELPBOX_SEA_STEEPNESS_H_
#define KELPBOX_SEA_STEEPNESS_H_

#include <cstddef>
#include <string>
#include <vector>

namespace Synthesis {

// The largest differences between samples, without their signs.
class Steepness {
 public:
  // Takes sample i of a signal. Differences are from the last sample that was taken, or from 0 when
  // there was none before a sample other than 0.
  void add(std::size_t i, double x);

  double first() const { return first_; }    // from one sample to the next
  double second() const { return second_; }  // from one difference to the next

 private:
  double first_ = 0.0;
  double second_ = 0.0;
  double last_ = 0.0;
  double last_difference_ = 0.0;
};

// Writes a line on the steepness of a signal x with samples dt seconds apart, and at most one line
// on its join, to the standard output stream. At the join, a signal that stops early is followed by
// zero, and any other by its own start. The join is reported if it is steeper than the signal
// inside.
void report_steepness(const std::string& name, const std::vector<double>& x, double dt,
                      const Steepness& inside, bool stops_early);

}  // namespace Synthesis

#endif  // KELPBOX_SEA_STEEPNESS_H_
