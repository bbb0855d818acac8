// What a division of an integer by zero in a script does. It raises SIGFPE, as the hardware would,
// unless a host has asked for a failure.
#ifndef KELPBOX_SCRIPT_DIVISION_H_
#define KELPBOX_SCRIPT_DIVISION_H_

#include <cstdint>

namespace Script {

// Thrown by a division while a DivisionScope exists. Readers convert it to a message that names
// the file and the line.
struct DivisionByZero {};

// While it exists, such divisions of this thread throw. Scopes nest.
class DivisionScope {
 public:
  DivisionScope();
  ~DivisionScope();
  DivisionScope(const DivisionScope&) = delete;
  DivisionScope& operator=(const DivisionScope&) = delete;

  // Whether a division has thrown since this scope began.
  bool divided_by_zero() const { return divided_by_zero_; }

 private:
  friend std::int32_t quotient(std::int32_t left, std::int32_t right);

  DivisionScope* outer_;
  bool divided_by_zero_ = false;
};

// Throws DivisionByZero, or raises SIGFPE, for a zero on the right.
std::int32_t quotient(std::int32_t left, std::int32_t right);

}  // namespace Script

#endif  // KELPBOX_SCRIPT_DIVISION_H_
