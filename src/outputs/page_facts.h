// What the thinning of a page has to know about the run.
#ifndef KELPBOX_OUTPUTS_PAGE_FACTS_H_
#define KELPBOX_OUTPUTS_PAGE_FACTS_H_

#include <cstddef>
#include <nlohmann/json_fwd.hpp>

namespace Outputs {

struct PageFacts {
  double repeat = 0.0;  // s
  std::size_t highest_harmonic = 0;
  double peak = 0.0;   // Hz, where the sea has most of its variance
  double depth = 0.0;  // m, at the sea's place; 0 for deep water

  double highest_frequency() const { return static_cast<double>(highest_harmonic) / repeat; }
};

// From summary.json. Throws a nlohmann::json::exception if it lacks them.
PageFacts page_facts(const nlohmann::ordered_json& summary);

// The n for which keeping every n-th sample leaves at least 10 per period, and no larger n does.
std::size_t thinning(double rate, double frequency);

// The number of samples that remain.
inline std::size_t thinned(std::size_t samples, std::size_t every) {
  return (samples + every - 1) / every;
}

}  // namespace Outputs

#endif  // KELPBOX_OUTPUTS_PAGE_FACTS_H_
