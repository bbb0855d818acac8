#include "script/division.h"

#include <csignal>
#include <cstdlib>
#include <limits>

namespace Script {
namespace {

thread_local DivisionScope* innermost = nullptr;

}  // namespace

DivisionScope::DivisionScope() : outer_(innermost) { innermost = this; }

DivisionScope::~DivisionScope() { innermost = outer_; }

std::int32_t quotient(std::int32_t left, std::int32_t right) {
  if (right == 0) {
    if (innermost != nullptr) {
      innermost->divided_by_zero_ = true;
      throw DivisionByZero();
    }
    // On purpose not an exception: an integer division by zero in a script ends the process, as
    // the hardware would end it.
    std::raise(SIGFPE);
    std::abort();
  }
  // The smallest integer divided by -1 does not fit: it wraps to itself.
  constexpr std::int32_t smallest = std::numeric_limits<std::int32_t>::min();
  if (right == -1 && left == smallest) return smallest;
  return left / right;
}

}  // namespace Script
