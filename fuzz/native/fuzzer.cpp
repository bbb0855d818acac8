// What libFuzzer calls. The two targets differ in their tables of functions only.
#include <gtest/gtest.h>

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <string_view>
#include <vector>

#include "fuzz/native/mutator.h"
#include "fuzz/native/session.h"
#include "fuzz/property.h"

namespace {

std::size_t store(const std::vector<Fuzz::Line>& lines, std::uint8_t* data, std::size_t most) {
  const std::string text = Fuzz::write_script(lines);
  if (text.size() > most) return 0;
  std::copy(text.begin(), text.end(), data);
  return text.size();
}

std::vector<Fuzz::Line> lines_of(const std::uint8_t* data, std::size_t size) {
  return Fuzz::read_script(std::string_view(reinterpret_cast<const char*>(data), size));
}

}  // namespace

extern "C" int LLVMFuzzerInitialize(int* argc, char*** argv) {
  // What the stand-in for the virtual machine expects ends the process too.
  GTEST_FLAG_SET(break_on_failure, true);
  // Analyses are never freed, which looks like a leak that needs a search of the whole heap after
  // each input. Leaks are looked for at the end of the process.
  static char option[] = "-detect_leaks=0";
  static std::vector<char*> arguments(*argv, *argv + *argc);
  arguments.push_back(option);
  *argc = static_cast<int>(arguments.size());
  arguments.push_back(nullptr);
  *argv = arguments.data();
  return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const Fuzz::Quiet quiet;
  Fuzz::Session session;
  for (const Fuzz::Line& line : lines_of(data, size)) {
    session.run(line);
    // A sequence may have switched it off.
    Base::collect_output(true);
  }
  session.check_usable();
  return 0;
}

extern "C" std::size_t LLVMFuzzerCustomMutator(std::uint8_t* data, std::size_t size,
                                               std::size_t most, unsigned seed) {
  Fuzz::Draws draws(seed);
  std::vector<Fuzz::Line> lines = lines_of(data, size);
  Fuzz::mutate(lines, draws);
  while (!lines.empty() && Fuzz::write_script(lines).size() > most) lines.pop_back();
  return store(lines, data, most);
}

extern "C" std::size_t LLVMFuzzerCustomCrossOver(const std::uint8_t* one, std::size_t one_size,
                                                 const std::uint8_t* other, std::size_t other_size,
                                                 std::uint8_t* out, std::size_t most,
                                                 unsigned seed) {
  Fuzz::Draws draws(seed);
  std::vector<Fuzz::Line> lines =
      Fuzz::crossed(lines_of(one, one_size), lines_of(other, other_size), draws);
  while (!lines.empty() && Fuzz::write_script(lines).size() > most) lines.pop_back();
  return store(lines, out, most);
}
