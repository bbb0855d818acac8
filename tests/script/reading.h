// Reading scripts in tests.
#ifndef KELPBOX_TESTS_SCRIPT_READING_H_
#define KELPBOX_TESTS_SCRIPT_READING_H_

#include <cstddef>
#include <ostream>
#include <string>

#include "support/output.h"
#include "support/thrown.h"

// The outcome of a read.
struct ReadResult {
  std::string failure;  // nothing_thrown after a success
  std::string printed;  // on standard output
  std::string errors;   // on standard error
};

// `reader` is a Script::Serialise with its log attached.
template <typename Reader>
ReadResult read_files(Reader& reader, std::ostream& report, const std::string& main,
                      const std::string& second = "") {
  ReadResult result;
  result.errors = Testing::printed_to_stderr([&] {
    result.printed = Testing::printed(
        [&] { result.failure = Testing::thrown([&] { reader.read(report, main, second); }); });
  });
  return result;
}

inline std::string repeated(const std::string& part, std::size_t count) {
  std::string all;
  for (std::size_t i = 0; i < count; ++i) all += part;
  return all;
}

#endif  // KELPBOX_TESTS_SCRIPT_READING_H_
