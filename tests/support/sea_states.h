// Wave spectra of the literature: as densities, and as formulas for the library.
#ifndef KELPBOX_TESTS_SUPPORT_SEA_STATES_H_
#define KELPBOX_TESTS_SUPPORT_SEA_STATES_H_

#include <cmath>
#include <string>

#include "base/params.h"
#include "support/integral.h"

namespace Testing {

// Of significant height hs in metres and peak frequency fp in Hz; frequencies in Hz, densities in
// m2s.
struct SeaState {
  double hs;
  double fp;

  // Pierson and Moskowitz (1964).
  double pierson_moskowitz(double f) const {
    return 5.0 / 16 * hs * hs * std::pow(fp, 4) / std::pow(f, 5) *
           std::exp(-1.25 * std::pow(fp / f, 4));
  }
  // Its integral in closed form.
  double pierson_moskowitz(double from, double to) const {
    return hs * hs / 16 *
           (std::exp(-1.25 * std::pow(fp / to, 4)) - std::exp(-1.25 * std::pow(fp / from, 4)));
  }

  // JONSWAP after Goda (1988), with a peak enhancement of 3.3 and the coefficient that keeps the
  // significant height. The peak is narrower below the peak frequency than above it.
  double jonswap(double f) const {
    const double alpha = 0.0624 / (0.230 + 0.0336 * 3.3 - 0.185 / (1.9 + 3.3));
    const double r = (f / fp - 1) / (f < fp ? 0.07 : 0.09);
    return alpha * hs * hs * std::pow(fp, 4) / std::pow(f, 5) *
           std::exp(-1.25 * std::pow(fp / f, 4)) * std::pow(3.3, std::exp(-r * r / 2));
  }
  // Its integral, in two parts since it bends at the peak frequency.
  double jonswap(double from, double to) const {
    const auto density = [this](double f) { return jonswap(f); };
    const double bend = std::fmin(std::fmax(fp, from), to);
    return simpson(density, from, bend, 2000) + simpson(density, bend, to, 2000);
  }

  // The values of the formulas' parameters.
  Base::Params params() const {
    Base::Params params;
    params.insert("hs", hs, "m");
    params.insert("fp", fp, "Hz");
    return params;
  }
};

// The texts of spectrum components between two limits such as "0.35@Hz". Both have the parameters
// hs[m] and fp[Hz].
inline std::string pierson_moskowitz_text(const std::string& from, const std::string& to) {
  return from + "#5/16*hs[m]^2*fp[Hz]^4/$[Hz]^5*exp(-1.25*(fp[Hz]/$[Hz])^4)@m2s#" + to;
}

inline std::string jonswap_text(const std::string& from, const std::string& to) {
  const auto side = [](const std::string& width) {
    return "0.0624/(0.230+0.0336*3.3-0.185/(1.9+3.3))*hs[m]^2*fp[Hz]^4/$[Hz]^5*"
           "exp(-1.25*(fp[Hz]/$[Hz])^4)*3.3^exp(-square(($[Hz]/fp[Hz]-1)/" +
           width + ")/2)@m2s";
  };
  return from + "#" + side("0.07") + "#fp[Hz]@Hz#" + side("0.09") + "#" + to;
}

}  // namespace Testing

#endif  // KELPBOX_TESTS_SUPPORT_SEA_STATES_H_
