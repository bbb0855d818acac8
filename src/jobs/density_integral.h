// A density that a formula of the library describes, and its integral.
#ifndef KELPBOX_JOBS_DENSITY_INTEGRAL_H_
#define KELPBOX_JOBS_DENSITY_INTEGRAL_H_

#include <functional>
#include <limits>
#include <string>

#include "base/params.h"

namespace Jobs {

using Density = std::function<double(double)>;

// The first function of a component's text as a function of frequency in Hz, in the base unit of
// its kind (m2/Hz or m/Hz). Throws std::string as the library does for a bad text and for
// parameters that are missing.
Density density_of(const std::string& text, const Base::Params& parameters);

// Where a density with one peak is integrated, in Hz.
struct PeakedRange {
  double peak = 0.0;
  double width = 0.1;  // of the narrowest part of the peak, as a fraction of its frequency
  double low = 0.0;
  double high = std::numeric_limits<double>::infinity();
};

// To about ten digits, for a density that falls faster than 1/f^3 at high frequencies and is smooth
// except at the peak.
double density_integral(const Density& density, const PeakedRange& range);

}  // namespace Jobs

#endif  // KELPBOX_JOBS_DENSITY_INTEGRAL_H_
