#include "jobs/ready_peaked.h"

#include <algorithm>
#include <limits>
#include <utility>

#include "jobs/density_integral.h"

namespace Jobs::Ready {

namespace {

ReadyParameter peak_width(const std::string& name, const std::string& fallback,
                          const std::string& side) {
  ReadyParameter sigma =
      number(name, "", "width of the peak " + side + ", as a fraction of its frequency");
  sigma.fallback = fallback;
  sigma.least = 0.001;  // the step of the formula's width is 1e-6 wide
  sigma.most = 1.0;
  return sigma;
}

}  // namespace

// The width steps from sigma_a to sigma_b at the peak. Two functions with a limit between them
// would say the same, but the library passes only one limit in a band.
std::string peaked_shape() {
  const std::string x = "($[Hz]*tp[s])";
  const std::string d = "($[Hz]*tp[s]-1)";
  const std::string sigma =
      "(0.5*(sigma_a+sigma_b)+0.5*(sigma_b-sigma_a)*" + d + "/sqrt(" + d + "^2+10^-12))";
  return "tp[s]/" + x + "^5*exp(-1.25/" + x + "^4)*gamma^exp(-0.5*(" + d + "/" + sigma + ")^2)";
}

std::vector<ReadyParameter> peaked_parameters(std::vector<ReadyParameter> before) {
  before.push_back(peak_period());
  ReadyParameter gamma = number("gamma", "", "peak enhancement; 1 as Bretschneider");
  gamma.fallback = "3.3";
  gamma.least = 1.0;
  gamma.most = 100.0;
  before.push_back(gamma);
  before.push_back(peak_width("sigma_a", "0.07", "below it"));
  before.push_back(peak_width("sigma_b", "0.09", "above it"));
  return before;
}

double peaked_integral(const std::string& formula, Base::Params parameters) {
  return peaked_integral(formula, std::move(parameters),
                         {0.0, std::numeric_limits<double>::infinity()});
}

double peaked_integral(const std::string& formula, Base::Params parameters,
                       const FrequencyRange& limits) {
  parameters.insert("norm", 1.0, "");
  const double width = std::min(parameters.get("sigma_a", ""), parameters.get("sigma_b", ""));
  return density_integral(density_of(formula, parameters),
                          {peak_of_tp(parameters), width, limits.low, limits.high});
}

double peak_of_tp(const Base::Params& parameters) { return 1.0 / parameters.get("tp", "s"); }

}  // namespace Jobs::Ready
