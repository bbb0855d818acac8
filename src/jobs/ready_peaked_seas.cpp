// JONSWAP and the spectra that are made from it. Their energy has no closed form: a factor `norm`
// is computed by integrating the formula itself.
#include <cmath>
#include <numbers>
#include <string>

#include "jobs/density_integral.h"
#include "jobs/ready_parts.h"
#include "jobs/ready_peaked.h"

namespace Jobs::Ready {

namespace {

ReadyParameter factor_for_height() {
  return number("norm", "",
                "makes the energy over all frequencies hs^2/16; 0.3125 for a gamma of 1");
}

void insert_norm_for_height(const std::string& formula, Base::Params& parameters) {
  const double hs = parameters.get("hs", "m");
  const double energy = peaked_integral(formula, parameters);
  parameters.insert("norm", hs * hs / 16.0 / energy, "");
}

ReadySea jonswap() {
  ReadySea sea;
  sea.name = "jonswap";
  sea.title = "JONSWAP, a growing wind sea";
  sea.source =
      "Hasselmann et al. 1973, \"Measurements of wind-wave growth and swell decay during the Joint "
      "North Sea Wave Project (JONSWAP)\", scaled to a given height";
  sea.formula = between_limits("norm*hs[m]^2*" + peaked_shape() + "@m2s");
  sea.parameters = with_limits(peaked_parameters({significant_height()}));
  sea.computed = {factor_for_height()};
  sea.complete = [formula = sea.formula](Base::Params& parameters, const ReadyContext&) {
    insert_norm_for_height(formula, parameters);
  };
  sea.peak = peak_of_tp;
  return sea;
}

// The factor tanh^2(kh) / (1 + 2kh / sinh(2kh)) of Kitaigorodskii. With a = kh tanh(kh) and
// r = kh / a it is 4 a / ((1 - a + 2 a r^2)^2 - (1 - a)^2), where r appears only once. The ratio is
// Guo's explicit approximation followed by one step of Newton's method, so that the factor is good
// to 7e-5 at all depths.
std::string depth_factor() {
  const std::string root = "(tau[s]*$[Hz])";
  const std::string a = root + "^2";
  const std::string guess = "(1-exp(-" + root + "^2.49))^(-1/2.49)";
  const std::string kh = a + "*" + guess;
  const std::string m = "2*" + kh + "/sinh(2*" + kh + ")";
  const std::string r = "(1/tanh(" + kh + ")+" + m + "*" + guess + ")/(1+" + m + ")";
  return "*4*" + a + "/((1-" + a + "+2*" + a + "*(" + r + ")^2)^2-(1-" + a + ")^2)";
}

ReadySea tma() {
  ReadySea sea;
  sea.name = "tma";
  sea.title = "TMA, a wind sea in water of finite depth";
  sea.source =
      "Bouws, Guenther, Rosenthal and Vincent 1985, \"Similarity of the wind wave spectrum in "
      "finite depth water: 1. Spectral form\", with the depth factor of Kitaigorodskii, Krasitskii "
      "and Zaslavskii 1975; kh by Guo 2002, \"Simple and explicit solution of wave dispersion "
      "equation\", and one step of Newton's method";
  sea.formula = between_limits("norm*hs[m]^2*" + peaked_shape() + depth_factor() + "@m2s");
  ReadyParameter depth = positive("depth", "m", "depth of the water");
  depth.otherwise = "the depth at the paddles";
  std::vector<ReadyParameter> parameters = peaked_parameters({significant_height()});
  for (ReadyParameter& parameter : parameters) {
    if (parameter.name == "tp") parameter.meaning += " in deep water; shallow water shortens it";
  }
  parameters.push_back(depth);
  sea.parameters = with_limits(parameters);
  sea.computed = {factor_for_height(), positive("tau", "s", "2 pi sqrt(depth/g)")};
  sea.complete = [formula = sea.formula](Base::Params& given, const ReadyContext& context) {
    if (!given.contains("depth")) given.insert("depth", context.depth, "m");
    given.insert("tau", 2.0 * std::numbers::pi * std::sqrt(given.get("depth", "m") / context.g),
                 "s");
    insert_norm_for_height(formula, given);
  };
  sea.peak = peak_of_tp;
  return sea;
}

}  // namespace

std::vector<ReadySea> peaked_seas() { return {jonswap(), tma()}; }

}  // namespace Jobs::Ready
