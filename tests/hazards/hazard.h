// Rows of the table of hazards: hostile or absurd input, each in a process of its own, with its
// message, its time and its memory.
//
// A row must end with at most 2 s of processor time, and with at most 256 MiB above what the
// process has at its start. Processor time does not depend on what else the machine does. A row
// that waits for something is ended after two minutes. The figures of each row are properties of
// its test: --gtest_output=json:FILE lists them.
#ifndef KELPBOX_TESTS_HAZARDS_HAZARD_H_
#define KELPBOX_TESTS_HAZARDS_HAZARD_H_

#include <gtest/gtest.h>

#include <functional>
#include <ostream>
#include <string>
#include <vector>

#include "support/temp_dir.h"

namespace Testing {

// What a row did.
struct Ending {
  std::string message;     // or what the work returned; the signal that ended the process
  double seconds = 0.0;    // of processor time
  double mebibytes = 0.0;  // above the start
};

struct Hazard {
  std::string name;                   // letters and digits: the name of the test
  std::function<std::string()> work;  // returns a result, or throws as the library does
  // The message of the failure, or the result. "<n>" stands for any number, and "<folder>" for the
  // path of the folder that `in_folder` gives.
  std::string expected;
};
inline void PrintTo(const Hazard& hazard, std::ostream* out) { *out << hazard.name; }

// Work in a new folder, whose path its message has as "<folder>".
std::function<std::string()> in_folder(std::function<std::string(const TempDir&)> work);

// Runs the work in a child process, which is ended if it takes far too long. Everything that it
// prints is discarded.
Ending ending_of(const std::function<std::string()>& work);

// Fails unless the ending is the expected one, within the limits of time and memory.
void expect_harmless(const Ending& ending, const std::string& expected);

// Whether the message is the expected one, with its "<n>".
bool matches(const std::string& message, const std::string& expected);

// The limits of this build.
double most_seconds();
constexpr double most_mebibytes = 256.0;

class HazardTest : public testing::TestWithParam<Hazard> {};

using Rows = std::vector<Hazard>;
inline std::string row_name(const testing::TestParamInfo<Hazard>& row) { return row.param.name; }

// The text n times.
std::string repeated(const std::string& text, std::size_t times);

}  // namespace Testing

#endif  // KELPBOX_TESTS_HAZARDS_HAZARD_H_
