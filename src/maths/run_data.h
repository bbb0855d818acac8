// The harmonic grid of a run: a repeat time of whole samples, and the harmonics that the
// wavemaker may make. Every wave of a run lies on a harmonic of the repeat time.
//
// A plain value. Failures are thrown as std::string. They change nothing, except that `init` stores
// the limits of the harmonics before it refuses them.
#ifndef KELPBOX_MATHS_RUN_DATA_H_
#define KELPBOX_MATHS_RUN_DATA_H_

#include <cstdint>

namespace Maths {

class RunData {
 public:
  // Rounds `repeat` (s) to a whole number of samples at `rate` (Hz). The limits are in Hz. Throws
  // "max harmonic is less than min harmonic".
  void init(double repeat, double rate, double min_freq, double max_freq, bool dalrymple);

  // One more than the highest harmonic. Throws "Calling size when not initialised".
  std::uint64_t size() const;
  // The frequency in Hz. Throws what require_harmonic throws.
  double freq(std::uint64_t harmonic) const;
  // Throws "Calling freq when not initialised", and "Harmonic out of range" for a harmonic above
  // the highest.
  void require_harmonic(std::uint64_t harmonic) const;
  // The repeat time in s. Throws "Repeat time zero or less".
  double value() const;
  // The harmonic nearest to a frequency in Hz. Throws "Calling wave_num when not initialised",
  // and "Wave number out of range" after a line on the standard output stream.
  std::uint64_t wave_num(double freq) const;
  // For hosts: 0 is the highest harmonic, 1 the lowest. Throws "Unknown type to harmonic".
  std::uint64_t harmonic(std::uint32_t type) const;
  std::uint64_t max_harmonic() const { return max_harmonic_; }
  std::uint64_t min_harmonic() const { return min_harmonic_; }
  bool dalrymple() const { return dalrymple_; }
  // Whether the harmonic nearest to a frequency in Hz may be made. Never throws.
  bool is_inrange(double freq) const;
  bool operator==(const RunData&) const = default;

 private:
  // Compared as unsigned, so a negative number is out of range.
  bool in_limits(std::int64_t harmonic) const;

  bool initialised_ = false;
  double repeat_ = 0.0;
  std::uint64_t max_harmonic_ = 0;
  std::uint64_t min_harmonic_ = 0;
  bool dalrymple_ = false;
};

}  // namespace Maths

#endif  // KELPBOX_MATHS_RUN_DATA_H_
