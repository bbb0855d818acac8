// Ready seas with their values filled in, and their densities as the library evaluates them.
#ifndef KELPBOX_TESTS_JOBS_READY_H_
#define KELPBOX_TESTS_JOBS_READY_H_

#include <algorithm>
#include <cmath>
#include <string>
#include <utility>
#include <vector>

#include "base/params.h"
#include "jobs/ready_sea.h"
#include "sea/piecewise_text.h"
#include "support/integral.h"

namespace Testing {

// A wide basin: 0.35 to 1.4 Hz in 0.7 m of water.
inline Jobs::ReadyContext basin() { return {0.35, 1.4, 9.81, 0.7, 0.0}; }

// Values as a job gives them: a number and its units.
struct Value {
  const char* name;
  double number;
  const char* units;
};
using Values = std::vector<Value>;

inline Base::Params params_of(const Values& values) {
  Base::Params params;
  for (const Value& value : values) params.insert(value.name, value.number, value.units);
  return params;
}

// Adds the fallbacks, which are numbers with or without units after a blank.
inline void add_fallbacks(const std::vector<Jobs::ReadyParameter>& parameters,
                          Base::Params& params) {
  for (const Jobs::ReadyParameter& parameter : parameters) {
    if (!parameter.fallback || params.contains(parameter.name)) continue;
    const std::string& text = *parameter.fallback;
    const std::size_t blank = text.find(' ');
    params.insert(parameter.name, std::stod(text),
                  blank == std::string::npos ? "" : text.substr(blank + 1));
  }
}

inline Base::Params completed(const std::string& name, const Values& values,
                              const Jobs::ReadyContext& context = basin()) {
  const Jobs::ReadySea* sea = Jobs::find_ready_sea(name);
  if (sea == nullptr) throw "no sea called " + name;
  Base::Params params = params_of(values);
  add_fallbacks(sea->parameters, params);
  sea->complete(params, context);
  return params;
}

// The density of a named sea in base units, evaluated by the library from the sea's text.
class LibraryDensity {
 public:
  LibraryDensity(const std::string& name, const Base::Params& params)
      : pieces_(Synthesis::parse_component_text(Jobs::find_ready_sea(name)->formula)) {
    Base::Params used;
    pieces_.bind_with_limits(params, used);
  }
  LibraryDensity(const std::string& name, const Values& values)
      : LibraryDensity(name, completed(name, values)) {}

  double operator()(double frequency) const {
    return pieces_.function(0)
        .evaluate(Base::Quantity(frequency, Base::Category::frequency))
        .get(pieces_.units().output);
  }

 private:
  Synthesis::Piecewise pieces_;
};

// The integral of f^n times a density over all frequencies, on a logarithmic scale. The parts meet
// at the peak, where a density may bend, and have short steps beside it.
template <typename Density>
double moment(const Density& density, double peak, int n) {
  const auto integrand = [&](double u) {
    const double f = peak * std::exp(u);
    return std::pow(f, n + 1) * density(f);
  };
  constexpr double near = 0.02;
  return simpson(integrand, -std::log(100.0), -near, 8000) + simpson(integrand, -near, 0.0, 1000) +
         simpson(integrand, 0.0, near, 1000) + simpson(integrand, near, std::log(100000.0), 16000);
}

// The frequency of the greatest density, between two limits around it.
template <typename Density>
double peak_of(const Density& density, double low, double high) {
  const double ratio = 0.5 * (std::sqrt(5.0) - 1.0);
  while (high - low > 1e-9 * high) {
    const double a = high - ratio * (high - low);
    const double b = low + ratio * (high - low);
    (density(a) > density(b) ? high : low) = density(a) > density(b) ? b : a;
  }
  return 0.5 * (low + high);
}

}  // namespace Testing

#endif  // KELPBOX_TESTS_JOBS_READY_H_
