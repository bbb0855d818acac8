// The text that a call throws as a std::string, for comparison with the one expected.
#ifndef KELPBOX_TESTS_BASE_THROWN_H_
#define KELPBOX_TESTS_BASE_THROWN_H_

#include <string>

template <typename Call>
std::string thrown(Call call) {
  try {
    call();
  } catch (const std::string& text) {
    return text;
  }
  return "(nothing thrown)";
}

#endif  // KELPBOX_TESTS_BASE_THROWN_H_
