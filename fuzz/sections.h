// Inputs that consist of several texts, so that a seed can be written by hand.
#ifndef KELPBOX_FUZZ_SECTIONS_H_
#define KELPBOX_FUZZ_SECTIONS_H_

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace Fuzz {

struct Section {
  std::string name;  // of the line above it, empty for the first one
  std::string text;
};

// The text before the first line that begins with "%% ", and after each of these.
inline std::vector<Section> sections(std::string_view input) {
  constexpr std::string_view mark = "%% ";
  std::vector<Section> found(1);
  while (!input.empty()) {
    const std::size_t end = input.find('\n');
    const std::string_view line = input.substr(0, end);
    const bool last = end == std::string_view::npos;
    input.remove_prefix(last ? input.size() : end + 1);
    if (line.substr(0, mark.size()) == mark) {
      found.push_back({std::string(line.substr(mark.size())), {}});
    } else {
      found.back().text.append(line).append(last ? "" : "\n");
    }
  }
  return found;
}

inline std::vector<std::string> lines(std::string_view text) {
  std::vector<std::string> found;
  while (!text.empty()) {
    const std::size_t end = text.find('\n');
    found.emplace_back(text.substr(0, end));
    text.remove_prefix(end == std::string_view::npos ? text.size() : end + 1);
  }
  return found;
}

}  // namespace Fuzz

#endif  // KELPBOX_FUZZ_SECTIONS_H_
