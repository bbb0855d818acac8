#include "jobs/wave_limits.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <string>

#include "base/constants.h"
#include "jobs/judge_criteria.h"
#include "maths/dispersion.h"
#include "maths/wavemaker_ratio.h"

namespace Jobs {
namespace {

double group_velocity(double frequency, double depth, double g) {
  const double k = wave_number(frequency, depth, g);
  const double q = 2.0 * k * depth;
  const double n = 0.5 * (1.0 + (q > 700.0 ? 0.0 : q / std::sinh(q)));
  return n * Base::TwoPi * frequency / k;
}

// The extreme value near sample i, whose neighbours are before and after it.
double vertex(double before, double middle, double after) {
  const double bend = before - 2.0 * middle + after;
  if (bend == 0.0) return middle;
  const double slope = 0.5 * (after - before);
  return middle - slope * slope / (2.0 * bend);
}

}  // namespace

double wave_number(double frequency, double depth, double g) {
  try {
    return Maths::knum(Base::TwoPi * frequency, depth, g);
  } catch (const std::string&) {
    return NAN;
  }
}

double wave_length(double frequency, double depth, double g) {
  return Base::TwoPi / wave_number(frequency, depth, g);
}

double variance_ratio(double frequency, double from, double to, double g) {
  if (from == to) return 1.0;
  return group_velocity(frequency, from, g) / group_velocity(frequency, to, g);
}

double miche_limit(double k, double depth) { return Criteria::miche * std::tanh(k * depth); }

double ursell_number(double height, double length, double depth) {
  return height * length * length / (depth * depth * depth);
}

std::optional<ZeroCrossingWave> highest_wave(const std::vector<double>& record, double rate) {
  const std::size_t n = record.size();
  if (n == 0) return std::nullopt;
  const auto at = [&](std::size_t i) { return record[i % n]; };
  if (!std::all_of(record.begin(), record.end(), [](double v) { return std::isfinite(v); })) {
    return std::nullopt;
  }
  std::vector<std::size_t> crossings;  // the samples before them
  for (std::size_t i = 0; i < n; ++i) {
    if (at(i) > 0.0 && at(i + 1) <= 0.0) crossings.push_back(i);
  }
  if (crossings.empty()) return std::nullopt;
  const auto time_of = [&](std::size_t i) {
    return static_cast<double>(i) + at(i) / (at(i) - at(i + 1));
  };

  std::optional<ZeroCrossingWave> highest;
  for (std::size_t c = 0; c < crossings.size(); ++c) {
    const std::size_t first = crossings[c];
    const std::size_t last = c + 1 < crossings.size() ? crossings[c + 1] : crossings[0] + n;
    double crest = 0.0;
    double trough = 0.0;
    for (std::size_t i = first + 1; i <= last; ++i) {
      const double before = at(i + n - 1);
      const double middle = at(i);
      const double after = at(i + 1);
      if (middle >= before && middle >= after) {
        crest = std::max(crest, vertex(before, middle, after));
      }
      if (middle <= before && middle <= after) {
        trough = std::min(trough, vertex(before, middle, after));
      }
    }
    const double period = (time_of(last) - time_of(first)) / rate;
    if (!highest || crest - trough > highest->height) {
      highest = ZeroCrossingWave{crest - trough, period};
    }
  }
  return highest;
}

double below_bed_ratio(double k, double depth, double edge, bool flap) {
  if (!(edge > depth)) return 1.0;
  const double kd = k * depth;
  // The integral of the paddle's shape times cosh k(z + d), from the bed to the surface, and up to
  // a common factor the transfer ratio.
  const double shape =
      flap ? edge * std::sinh(kd) / k - (std::cosh(kd) - 1.0) / (k * k) : std::sinh(kd) / k;
  const double ratio = 2.0 * std::sinh(kd) / (std::sinh(kd) * std::cosh(kd) + kd) * k * shape;
  const double assumed =
      flap ? Maths::flap_ratio(k, depth, edge) : Maths::piston_ratio(k, depth, edge);
  return assumed / ratio;
}

}  // namespace Jobs
