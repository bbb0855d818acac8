#include "outputs/summary_lengths.h"

#include <cmath>
#include <nlohmann/json.hpp>

namespace Outputs {
namespace {

using Json = nlohmann::ordered_json;

// A part without one of the two is refused where it is read.
std::string fault(const Json& part, const char* count, const std::string& place, double repeat) {
  if (!part.contains("rate") || !part.contains(count)) return "";
  const auto samples = part[count].get<double>();
  const double expected = part["rate"].get<double>() * repeat;
  // The number of samples is rounded to a whole one, and the rate need not follow it.
  if (std::abs(samples - expected) <= 1.0 + 1e-9 * samples) return "";
  return place + "." + count + " is not " + place + ".rate times run.repeat";
}

}  // namespace

std::string fault_of_lengths(const Json& summary) {
  const Json& run = summary.at("run");
  if (!run.contains("repeat")) return "";
  const auto repeat = run["repeat"].get<double>();
  std::string found;
  if (summary.contains("drive")) found = fault(summary["drive"], "samples", "drive", repeat);
  const Json& points = summary.at("points");
  for (std::size_t i = 0; found.empty() && i < points.size(); ++i) {
    found = fault(points[i], "samples", "points[" + std::to_string(i) + "]", repeat);
  }
  if (found.empty() && summary.contains("field")) {
    found = fault(summary["field"], "frames", "field", repeat);
  }
  return found;
}

}  // namespace Outputs
