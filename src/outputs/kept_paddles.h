// Which paddles of a large bank a page shows.
#ifndef KELPBOX_OUTPUTS_KEPT_PADDLES_H_
#define KELPBOX_OUTPUTS_KEPT_PADDLES_H_

#include <cstddef>
#include <vector>

namespace Outputs {

// How many paddles of each bank fit into so many samples, and the thinning of their signals. Each
// bank keeps all, or a share of at least four.
struct DriveBudget {
  std::size_t every = 1;
  std::vector<std::size_t> paddles;
};
DriveBudget drive_budget(const std::vector<std::size_t>& paddles, std::size_t samples,
                         std::size_t every, std::size_t most_samples);

// `count` of the paddles, sorted: those with these indices, and others in even steps.
std::vector<std::size_t> kept_paddles(std::size_t paddles, std::size_t count,
                                      const std::vector<std::size_t>& always);

}  // namespace Outputs

#endif  // KELPBOX_OUTPUTS_KEPT_PADDLES_H_
