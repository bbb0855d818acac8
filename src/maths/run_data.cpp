#include "maths/run_data.h"

#include <cmath>
#include <ostream>
#include <string>

#include "base/streams.h"
#include "maths/rounding.h"

namespace Maths {

void RunData::init(double repeat, double rate, double min_freq, double max_freq, bool dalrymple) {
  const std::uint32_t samples = round_to_u32(repeat * rate);
  const double whole = samples / rate;
  std::int64_t low = round_to_i32(whole * min_freq);
  if (low == 0) low = 1;  // harmonic 0 is the mean, which is never made
  const std::int64_t high = round_to_i32(whole * max_freq);
  max_harmonic_ = static_cast<std::uint64_t>(high);
  min_harmonic_ = static_cast<std::uint64_t>(low);
  // A non-finite repeat time has no harmonics.
  if (min_harmonic_ > max_harmonic_ || !std::isfinite(whole)) {
    throw std::string("max harmonic is less than min harmonic");
  }
  repeat_ = whole;
  initialised_ = true;
  dalrymple_ = dalrymple;
}

std::uint64_t RunData::size() const {
  if (!initialised_) throw std::string("Calling size when not initialised");
  return max_harmonic_ + 1;
}

double RunData::freq(std::uint64_t harmonic) const {
  require_harmonic(harmonic);
  return static_cast<double>(harmonic) / repeat_;
}

void RunData::require_harmonic(std::uint64_t harmonic) const {
  if (!initialised_) throw std::string("Calling freq when not initialised");
  if (harmonic > max_harmonic_) throw std::string("Harmonic out of range");
}

double RunData::value() const {
  if (repeat_ <= 0.0) throw std::string("Repeat time zero or less");
  return repeat_;
}

std::uint64_t RunData::wave_num(double freq) const {
  if (!initialised_) throw std::string("Calling wave_num when not initialised");
  const std::int64_t nearest = round_to_i64(freq * repeat_);
  if (!in_limits(nearest)) {
    Base::progress() << "wave number out of range " << nearest << " must be between "
                     << min_harmonic_ << " and " << max_harmonic_ << std::endl;
    throw std::string("Wave number out of range");
  }
  return static_cast<std::uint64_t>(nearest);
}

std::uint64_t RunData::harmonic(std::uint32_t type) const {
  switch (type) {
    case 0:
      return max_harmonic_;
    case 1:
      return min_harmonic_;
    default:
      throw std::string("Unknown type to harmonic");
  }
}

bool RunData::is_inrange(double freq) const { return in_limits(round_to_i64(freq * repeat_)); }

bool RunData::in_limits(std::int64_t harmonic) const {
  const auto unsigned_harmonic = static_cast<std::uint64_t>(harmonic);
  return min_harmonic_ <= unsigned_harmonic && unsigned_harmonic <= max_harmonic_;
}

}  // namespace Maths
