// A sequence of calls as text: one call a line, its name and its arguments, separated by blanks.
//
//   Kelpbox_Params_insert__SWIG_0 0 repeat 8 s
//
// An object is written as its age: 0 is the newest one of its class. `null` is a null text or
// object. A text has %20 for a blank and the like, and is empty as %. A list has commas between its
// elements, and is `none` if it is null.
#ifndef KELPBOX_FUZZ_NATIVE_SCRIPT_H_
#define KELPBOX_FUZZ_NATIVE_SCRIPT_H_

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace Fuzz {

struct Line {
  std::string name;
  std::vector<std::string> tokens;
};

std::vector<Line> read_script(std::string_view text);
std::string write_script(const std::vector<Line>& lines);

std::string escaped(std::string_view text);
std::string unescaped(std::string_view token);
std::vector<std::string> list_of(std::string_view token);

// Any token is a number: what cannot be read is 0.
double real_of(const std::string& token);
std::int64_t integer_of(const std::string& token);

}  // namespace Fuzz

#endif  // KELPBOX_FUZZ_NATIVE_SCRIPT_H_
