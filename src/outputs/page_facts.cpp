#include "outputs/page_facts.h"

#include <algorithm>
#include <cmath>
#include <nlohmann/json.hpp>

namespace Outputs {
namespace {

using Json = nlohmann::ordered_json;

double number_at(const Json& list, std::size_t i) {
  return i < list.size() && list[i].is_number() ? list[i].get<double>() : 0.0;
}

// The frequency of the greatest density; 0 if the summary has no spectrum.
double peak_of(const Json& summary) {
  const auto spectrum = summary.find("spectrum");
  if (spectrum == summary.end()) return 0.0;
  const Json& f = spectrum->at("f");
  const Json& made = spectrum->at("made");
  double greatest = 0.0;
  double peak = 0.0;
  for (std::size_t i = 0; i < made.size(); ++i) {
    if (!(number_at(made, i) > greatest)) continue;
    greatest = number_at(made, i);
    peak = number_at(f, i);
  }
  return peak;
}

// By the summaries of older versions: the finding about the peak period.
double peak_of_findings(const Json& summary) {
  for (const Json& finding : summary.at("findings")) {
    if (finding.at("key") != "tp" || !finding.at("made").is_number()) continue;
    const double period = finding.at("made").get<double>();
    if (period > 0.0) return 1.0 / period;
  }
  return 0.0;
}

// The depth at x on the polygon of the profile.
double depth_at(const Json& profile, double x) {
  const Json& places = profile.at("x");
  const Json& depths = profile.at("depth");
  std::size_t right = 0;
  while (right < places.size() && number_at(places, right) < x) ++right;
  if (right == 0 || right >= places.size()) {
    return number_at(depths, right == 0 ? 0 : places.size() - 1);
  }
  const double from = number_at(places, right - 1);
  const double share = (x - from) / (number_at(places, right) - from);
  return number_at(depths, right - 1) +
         share * (number_at(depths, right) - number_at(depths, right - 1));
}

double depth_of(const Json& summary) {
  const auto plan = summary.find("plan");
  if (plan == summary.end()) return 0.0;
  const Json& seas = summary.at("seas");
  const double x = seas.empty() ? 0.0 : seas.front().at("holds").at("x").get<double>();
  return std::max(0.0, depth_at(plan->at("profile"), x));
}

}  // namespace

PageFacts page_facts(const Json& summary) {
  PageFacts facts;
  facts.repeat = summary.at("run").at("repeat").get<double>();
  const auto highest = summary.at("run").at("highest_harmonic").get<double>();
  facts.highest_harmonic = static_cast<std::size_t>(highest);
  facts.peak = peak_of(summary);
  if (!(facts.peak > 0.0)) facts.peak = peak_of_findings(summary);
  if (!(facts.peak > 0.0)) facts.peak = facts.highest_frequency();
  facts.depth = depth_of(summary);
  return facts;
}

std::size_t thinning(double rate, double frequency) {
  constexpr double least = 10.0;  // samples per period
  // A whole number may lie just below because of rounding.
  const double every = std::floor(rate / (least * frequency) * (1.0 + 1e-12));
  return every > 1.0 ? static_cast<std::size_t>(std::min(every, 1e9)) : 1;
}

}  // namespace Outputs
