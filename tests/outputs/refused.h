// Failures to write as strings, so that a test compares what a call throws in one line.
#ifndef KELPBOX_TESTS_OUTPUTS_REFUSED_H_
#define KELPBOX_TESTS_OUTPUTS_REFUSED_H_

#include <string>

#include "outputs/cannot_write.h"

namespace Testing {

// The message of a thrown CannotWrite, or "(written)".
template <typename Call>
std::string refused(Call&& call) {
  try {
    call();
  } catch (const Outputs::CannotWrite& failure) {
    return failure.message;
  }
  return "(written)";
}

}  // namespace Testing

#endif  // KELPBOX_TESTS_OUTPUTS_REFUSED_H_
