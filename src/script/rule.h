// How many objects a wrapper may hold, and where their indices begin.
#ifndef KELPBOX_SCRIPT_RULE_H_
#define KELPBOX_SCRIPT_RULE_H_

#include <cstdint>

namespace Script {

enum class SizeRule : std::int32_t { any = 0, at_most = 1, at_least = 2, exactly = 3 };

// Whether a script may choose the first index.
namespace OffsetRule {
inline constexpr std::int32_t any = 0;
inline constexpr std::int32_t usual = 1;  // usually required_offset, but never checked
inline constexpr std::int32_t fixed = 2;  // must be required_offset
}  // namespace OffsetRule

struct Rule {
  SizeRule size_rule = SizeRule::any;
  std::uint64_t limit = 0;
  std::int32_t offset_rule = OffsetRule::any;
  std::int32_t required_offset = 0;

  static Rule any() { return {}; }
  static Rule at_most(std::uint64_t count) { return {SizeRule::at_most, count}; }
  static Rule at_least(std::uint64_t count) { return {SizeRule::at_least, count}; }
  static Rule exactly(std::uint64_t count) { return {SizeRule::exactly, count}; }
  // The same sizes, with indices that usually begin at `first`.
  Rule from(std::int32_t first) const { return {size_rule, limit, OffsetRule::usual, first}; }

  bool admits(std::uint64_t count) const;
  // Whether there must be at least one object.
  bool fixed_size() const {
    return (size_rule == SizeRule::at_least || size_rule == SizeRule::exactly) && limit > 0;
  }
};

}  // namespace Script

#endif  // KELPBOX_SCRIPT_RULE_H_
