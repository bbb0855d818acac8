// The changes that a job can name.
#include <limits>
#include <string>
#include <vector>

#include "jobs/ready_parts.h"

namespace Jobs {

namespace {

using Ready::number;
using Ready::peak_period;

ReadyParameter plain(const std::string& name, const std::string& meaning, double least,
                     double most) {
  ReadyParameter parameter = number(name, "", meaning);
  parameter.least = least;
  parameter.most = most;
  return parameter;
}

constexpr double infinity = std::numeric_limits<double>::infinity();
constexpr double highest_power = 1e6;  // that the library draws from

ReadyChange cos2s() {
  ReadyChange change;
  change.name = "cos2s";
  change.title = "Random directions, cos^2s of half the deviation from the mean";
  change.source =
      "Longuet-Higgins, Cartwright and Smith 1963, \"Observations of the directional spectrum of "
      "sea waves using the motions of a floating buoy\"";
  change.modifier = "AngleSpread";
  change.formula = "s";
  change.parameters = {
      plain("s", "the power; more is narrower, 10 has a spread of 24 deg", 0.5, highest_power / 2)};
  change.fixed = {{"function", "Cos2S"}};
  return change;
}

ReadyChange cosn() {
  ReadyChange change;
  change.name = "cosn";
  change.title = "Random directions, cos^n of the deviation from the mean";
  change.source =
      "the cosine power on the half plane; Pierson, Neumann and James 1955, \"Practical methods "
      "for observing and forecasting ocean waves\", have n = 2";
  change.modifier = "AngleSpread";
  change.formula = "n";
  change.parameters = {
      plain("n", "the power; more is narrower, 4 has a spread of 25 deg", 1.0, highest_power)};
  change.fixed = {{"function", "CosS"}};
  return change;
}

// Below 1/2 the library's law is no longer that of the literature. max(p, 1/2) is written as
// 1/2 + (d + |d|) / 2 with d = p - 1/2.
std::string goda_side(const std::string& power) {
  const std::string d = "(s_max*($[Hz]*tp[s])^" + power + "-0.5)";
  return "0.5+0.5*(" + d + "+sqrt(" + d + "^2))";
}

ReadyChange goda() {
  ReadyChange change;
  change.name = "goda";
  change.title = "Random directions, cos^2s with the narrowest spread at the peak";
  change.source =
      "Goda and Suzuki 1975, \"Computation of refraction and diffraction of sea waves with "
      "Mitsuyasu's directional spectrum\"; powers below 0.5 are raised to 0.5";
  change.modifier = "AngleSpread";
  change.formula = goda_side("5") + "#1/tp[s]@Hz#" + goda_side("(-2.5)");
  change.parameters = {
      plain("s_max", "the power at the peak: 10 for wind seas, 25 and more for swell", 0.5,
            highest_power / 2),
      peak_period()};
  change.fixed = {{"function", "Cos2S"}};
  return change;
}

ReadyChange random_phases() {
  ReadyChange change;
  change.name = "random_phases";
  change.title = "Random phases, all equally likely";
  change.source = "Rice 1944, \"Mathematical analysis of random noise\"";
  change.modifier = "PhaseRandom";
  return change;
}

ReadyChange gain() {
  ReadyChange change;
  change.name = "gain";
  change.title = "All amplitudes multiplied by one factor";
  change.modifier = "GainAdjust";
  change.formula = "factor";
  change.parameters = {plain("factor", "2 doubles the heights", 0.0, infinity)};
  return change;
}

ReadyChange direction() {
  ReadyChange change;
  change.name = "direction";
  change.title = "All waves in one direction";
  change.modifier = "AngleChange";
  change.formula = "angle[rad]@rad";
  change.parameters = {number("angle", "deg", "direction in which they travel")};
  change.fixed = {{"set", "True"}};
  return change;
}

}  // namespace

const std::vector<ReadyChange>& ready_changes() {
  static const std::vector<ReadyChange> changes{cos2s(),     cosn(),          goda(),
                                                direction(), random_phases(), gain()};
  return changes;
}

const ReadyChange* find_ready_change(const std::string& name) {
  for (const ReadyChange& change : ready_changes()) {
    if (change.name == name) return &change;
  }
  return nullptr;
}

}  // namespace Jobs
