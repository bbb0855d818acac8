// Swell, two seas at once, and noise. Their energy has a closed form.
#include <cmath>
#include <numbers>
#include <string>

#include "jobs/ready_parts.h"

namespace Jobs::Ready {

namespace {

// One of the two seas of Ochi and Hubble, whose parameters end with the number. With
// u = (lambda + 1/4) / (f tp)^4 it is hs^2 / (4 f) u^lambda exp(-u) / tgamma(lambda). One exponent
// holds all powers, since each alone may be out of range.
std::string ochi_hubble_term(const std::string& number) {
  const std::string lambda = "lambda" + number;
  const std::string u = "(" + lambda + "+0.25)/($[Hz]*tp" + number + "[s])^4";
  return "0.25*hs" + number + "[m]^2/$[Hz]*exp(" + lambda + "*log(" + u + ")-" + u +
         "-log(tgamma(" + lambda + ")))";
}

// The density of one sea at its peak, relative to the other's.
double ochi_hubble_peak(const Base::Params& parameters, const std::string& number) {
  const double hs = parameters.get("hs" + number, "m");
  const double lambda = parameters.get("lambda" + number, "");
  const double u = lambda + 0.25;
  return hs * hs * parameters.get("tp" + number, "s") *
         std::exp(lambda * std::log(u) - u - std::lgamma(lambda));
}

ReadySea ochi_hubble() {
  ReadySea sea;
  sea.name = "ochi_hubble";
  sea.title = "Ochi-Hubble, a swell and a wind sea";
  sea.source = "Ochi and Hubble 1976, \"Six-parameter wave spectra\"";
  sea.formula = between_limits("(" + ochi_hubble_term("1") + "+" + ochi_hubble_term("2") + ")@m2s");
  std::vector<ReadyParameter> parameters;
  for (const std::string number : {"1", "2"}) {
    const std::string which = number == "1" ? " of the first sea" : " of the second sea";
    parameters.push_back(positive("hs" + number, "m", "significant height" + which));
    parameters.push_back(positive("tp" + number, "s", "period of the peak" + which));
    parameters.push_back(positive("lambda" + number, "",
                                  "shape" + which + ": 1 as Bretschneider, more is narrower"));
    parameters.back().most = 150.0;  // tgamma overflows above 171
  }
  sea.parameters = with_limits(parameters);
  sea.peak = [](const Base::Params& given) {
    const bool first = ochi_hubble_peak(given, "1") >= ochi_hubble_peak(given, "2");
    return 1.0 / given.get(first ? "tp1" : "tp2", "s");
  };
  return sea;
}

ReadySea gaussian_swell() {
  ReadySea sea;
  sea.name = "gaussian_swell";
  sea.title = "Gaussian swell, a narrow sea from a far storm";
  sea.source = "the normal density of statistics as a spectrum";
  sea.formula = between_limits(
      "norm*hs[m]^2/(16*sqrt(2*pi)*width[Hz])"
      "*exp(-0.5*(($[Hz]-1/tp[s])/width[Hz])^2)@m2s");
  sea.parameters = with_limits({significant_height(), peak_period(),
                                positive("width", "Hz", "standard deviation about the peak")});
  sea.computed = {number("norm", "", "1 over the part of the normal density above 0 Hz")};
  sea.complete = [](Base::Params& parameters, const ReadyContext&) {
    const double deviations = 1.0 / (parameters.get("tp", "s") * parameters.get("width", "Hz"));
    parameters.insert("norm", 2.0 / std::erfc(-deviations / std::numbers::sqrt2), "");
  };
  sea.peak = [](const Base::Params& parameters) { return 1.0 / parameters.get("tp", "s"); };
  return sea;
}

ReadySea white_noise() {
  ReadySea sea;
  sea.name = "white_noise";
  sea.title = "White noise, the same energy at all frequencies between two";
  sea.source = "hs^2/16 divided by the width of the band";
  sea.formula = between_limits("hs[m]^2/16/(f_max[Hz]-f_min[Hz])@m2s");
  sea.parameters = with_limits({significant_height()});
  // The library gives the whole band to the harmonics at both ends. The limits are moved to the
  // edges of these bands, or the height would be too large; by a little less, since a frequency
  // half-way between two harmonics belongs to the upper one.
  sea.complete = [](Base::Params& parameters, const ReadyContext& context) {
    if (!(context.repeat > 0.0)) return;
    const FrequencyRange edges = band_edges(limits_in(parameters), context);
    const double inside = 1e-6 / context.repeat;
    parameters.set("f_min", edges.low + inside, Base::Category::frequency);
    parameters.set("f_max", edges.high - inside, Base::Category::frequency);
  };
  sea.peak = [](const Base::Params& parameters) {
    const FrequencyRange limits = limits_in(parameters);
    return 0.5 * (limits.low + limits.high);
  };
  sea.ends_at_limits = true;
  return sea;
}

}  // namespace

std::vector<ReadySea> mixed_seas() { return {ochi_hubble(), gaussian_swell(), white_noise()}; }

}  // namespace Jobs::Ready
