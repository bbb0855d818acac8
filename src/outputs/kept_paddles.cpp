#include "outputs/kept_paddles.h"

#include <algorithm>
#include <numeric>
#include <set>

#include "outputs/page_facts.h"

namespace Outputs {
namespace {

constexpr std::size_t least_kept = 4;

// What each bank keeps if together they keep about `most`.
std::vector<std::size_t> shares(const std::vector<std::size_t>& paddles, std::size_t most) {
  const std::size_t all = std::accumulate(paddles.begin(), paddles.end(), std::size_t{0});
  if (all <= most) return paddles;
  std::vector<std::size_t> kept;
  for (const std::size_t count : paddles) {
    const double share = static_cast<double>(count) / static_cast<double>(all);
    const auto even = static_cast<std::size_t>(share * static_cast<double>(most));
    kept.push_back(std::min(count, std::max(least_kept, even)));
  }
  return kept;
}

}  // namespace

DriveBudget drive_budget(const std::vector<std::size_t>& paddles, std::size_t samples,
                         std::size_t every, std::size_t most_samples) {
  DriveBudget budget{every, shares(paddles, most_samples / thinned(samples, every))};
  const std::size_t kept =
      std::accumulate(budget.paddles.begin(), budget.paddles.end(), std::size_t{0});
  // Even the least number of paddles may be too much of a very long run. A little more is no reason
  // to lose samples.
  budget.every = std::max(every, thinned(kept * samples, most_samples + most_samples / 8));
  return budget;
}

std::vector<std::size_t> kept_paddles(std::size_t paddles, std::size_t count,
                                      const std::vector<std::size_t>& always) {
  std::set<std::size_t> kept;
  if (count >= paddles) {
    for (std::size_t i = 0; i < paddles; ++i) kept.insert(i);
    return {kept.begin(), kept.end()};
  }
  kept.insert(always.begin(), always.end());
  const std::size_t even = count > kept.size() ? count - kept.size() : 0;
  for (std::size_t i = 0; i < even; ++i) {
    kept.insert(even == 1 ? paddles / 2 : i * (paddles - 1) / (even - 1));
  }
  return {kept.begin(), kept.end()};
}

}  // namespace Outputs
