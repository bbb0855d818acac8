// Failures as strings, so that a test compares what a call throws in one line.
#ifndef KELPBOX_TESTS_SUPPORT_THROWN_H_
#define KELPBOX_TESTS_SUPPORT_THROWN_H_

#include <string>

namespace Testing {

inline const std::string nothing_thrown = "(nothing thrown)";

// The message of a thrown std::string, "plain: <message>" for a thrown character pointer, or
// nothing_thrown. Any other exception leaves the call and fails the test.
template <typename Call>
std::string thrown(Call&& call) {
  try {
    call();
  } catch (const std::string& message) {
    return message;
  } catch (const char* message) {
    return std::string("plain: ") + message;
  }
  return nothing_thrown;
}

}  // namespace Testing

#endif  // KELPBOX_TESTS_SUPPORT_THROWN_H_
