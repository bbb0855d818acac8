// What a call writes to the standard streams of the process. Only this header captures them.
#ifndef KELPBOX_TESTS_SUPPORT_OUTPUT_H_
#define KELPBOX_TESTS_SUPPORT_OUTPUT_H_

#include <gtest/gtest.h>

#include <string>

namespace Testing {

// What the call writes to standard output. If it throws, the stream is restored and the exception
// passed on; to see both, write printed([&] { failure = thrown(...); }).
template <typename Call>
std::string printed(Call&& call) {
  testing::internal::CaptureStdout();
  try {
    call();
  } catch (...) {
    testing::internal::GetCapturedStdout();
    throw;
  }
  return testing::internal::GetCapturedStdout();
}

// The same for standard error. The two nest.
template <typename Call>
std::string printed_to_stderr(Call&& call) {
  testing::internal::CaptureStderr();
  try {
    call();
  } catch (...) {
    testing::internal::GetCapturedStderr();
    throw;
  }
  return testing::internal::GetCapturedStderr();
}

}  // namespace Testing

#endif  // KELPBOX_TESTS_SUPPORT_OUTPUT_H_
