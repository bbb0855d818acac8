// Wind seas whose energy has a closed form: alpha / f^5 exp(-beta / f^4), with alpha / (4 beta) =
// hs^2 / 16.
#include <cmath>
#include <numbers>

#include "jobs/ready_parts.h"

namespace Jobs::Ready {

namespace {

constexpr double pi = std::numbers::pi;

ReadySea pierson_moskowitz() {
  ReadySea sea;
  sea.name = "pierson_moskowitz";
  sea.title = "Pierson-Moskowitz, a fully developed sea";
  sea.source =
      "Pierson and Moskowitz 1964, \"A proposed spectral form for fully developed wind seas based "
      "on the similarity theory of S. A. Kitaigorodskii\", with the wind speed replaced by the "
      "height that it makes";
  sea.formula = between_limits(
      "alpha*g[m/s2]^2/((2*pi)^4*$[Hz]^5)"
      "*exp(-4*alpha*(g[m/s2]/hs[m])^2/(2*pi*$[Hz])^4)@m2s");
  ReadyParameter alpha = positive("alpha", "", "Phillips' constant");
  alpha.fallback = "0.0081";
  sea.parameters = with_limits({significant_height(), alpha});
  sea.computed = {gravity()};
  sea.complete = [](Base::Params& parameters, const ReadyContext& context) {
    parameters.insert("g", context.g, "m/s2");
  };
  sea.peak = [](const Base::Params& parameters) {
    const double steepness = parameters.get("g", "m/s2") / parameters.get("hs", "m");
    return std::pow(3.2 * parameters.get("alpha", "") * steepness * steepness, 0.25) / (2 * pi);
  };
  return sea;
}

ReadySea bretschneider() {
  ReadySea sea;
  sea.name = "bretschneider";
  sea.title = "Bretschneider, a sea of given height and peak";
  sea.source =
      "Bretschneider 1959, \"Wave variability and wave spectra for wind-generated gravity waves\"";
  sea.formula = between_limits(
      "5/16*hs[m]^2*tp[s]/($[Hz]*tp[s])^5"
      "*exp(-1.25/($[Hz]*tp[s])^4)@m2s");
  sea.parameters = with_limits({significant_height(), peak_period()});
  sea.peak = [](const Base::Params& parameters) { return 1.0 / parameters.get("tp", "s"); };
  return sea;
}

// The conference gave 173 and 691 as coefficients for t1 in rad/s: these are rounded values of
// 4 pi^4 / tgamma(0.75)^4 and of four times that. With the exact ones, m0 is hs^2 / 16 and m0 / m1
// is t1.
ReadySea ittc() {
  ReadySea sea;
  sea.name = "ittc";
  sea.title = "ITTC, a sea of given height and mean period";
  sea.source =
      "International Towing Tank Conference 1978, two-parameter spectrum; its 173 and 691 are "
      "written here as the exact tgamma(3/4), so that hs and t1 come out to all digits";
  sea.formula = between_limits(
      "0.25*hs[m]^2*t1[s]*tgamma(0.75)^-4/($[Hz]*t1[s])^5"
      "*exp(-1/(tgamma(0.75)*$[Hz]*t1[s])^4)@m2s");
  sea.parameters = with_limits(
      {significant_height(), positive("t1", "s", "mean period, m0/m1 (about 0.77 tp)")});
  sea.peak = [](const Base::Params& parameters) {
    return std::pow(0.8, 0.25) / (std::tgamma(0.75) * parameters.get("t1", "s"));
  };
  return sea;
}

}  // namespace

std::vector<ReadySea> wind_seas() { return {pierson_moskowitz(), bretschneider(), ittc()}; }

}  // namespace Jobs::Ready
