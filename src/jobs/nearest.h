// The known name that is most like a misspelt one.
#ifndef KELPBOX_JOBS_NEAREST_H_
#define KELPBOX_JOBS_NEAREST_H_

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace Jobs {

// First a name that differs in case only; then the one at the smallest edit distance (insertions,
// deletions, substitutions, swaps of neighbours; Damerau 1964), if it is at most a third of the
// length of the longer name and at least 1; then one with the same words in another order.
std::optional<std::string> nearest(std::string_view name, const std::vector<std::string>& known);

}  // namespace Jobs

#endif  // KELPBOX_JOBS_NEAREST_H_
