#include "script/rule.h"

namespace Script {

bool Rule::admits(std::uint64_t count) const {
  switch (size_rule) {
    case SizeRule::any:
      return true;
    case SizeRule::at_most:
      return count <= limit;
    case SizeRule::at_least:
      return count >= limit;
    case SizeRule::exactly:
      return count == limit;
  }
  return false;
}

}  // namespace Script
