// Bounds that a TOML text must keep before it is parsed.
#ifndef KELPBOX_JOBS_TOML_BOUNDS_H_
#define KELPBOX_JOBS_TOML_BOUNDS_H_

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

namespace Jobs {

struct BrokenBound {
  std::size_t byte = 0;  // where
  std::string fault;
  std::string label;
};

// Levels of arrays, inline tables and dotted keys. The parser and its trees recurse, so a deeper
// text could exhaust the stack.
inline constexpr std::size_t most_toml_levels = 100;
// A value needs about a hundred times the memory of its text.
inline constexpr std::size_t most_toml_values = 100000;

// The first bound that the text breaks. The text does not have to be valid TOML: what comes after
// its first syntax error does not matter, because no parser gets there.
std::optional<BrokenBound> find_broken_bound(std::string_view text);

}  // namespace Jobs

#endif  // KELPBOX_JOBS_TOML_BOUNDS_H_
