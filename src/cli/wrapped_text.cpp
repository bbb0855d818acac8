#include "cli/wrapped_text.h"

#include <algorithm>

namespace Cli {

std::size_t characters(std::string_view text) {
  std::size_t count = 0;
  for (const char c : text) {
    if ((static_cast<unsigned char>(c) & 0xC0U) != 0x80U) ++count;
  }
  return count;
}

std::string wrapped(const std::string& text, const std::string& first, const std::string& other,
                    std::size_t width) {
  std::string lines;
  std::string line = first;
  bool empty = true;
  std::size_t gap = 0;  // blanks before the next word, kept within a line
  for (std::size_t at = 0; at < text.size();) {
    if (text[at] == ' ' || text[at] == '\n') {
      ++gap;
      ++at;
      continue;
    }
    const std::size_t end = std::min(text.find_first_of(" \n", at), text.size());
    const std::string word = text.substr(at, end - at);
    if (!empty && characters(line) + gap + characters(word) > width) {
      lines += line + '\n';
      line = other;
      empty = true;
    }
    if (!empty) line += std::string(gap, ' ');
    line += word;
    empty = false;
    gap = 0;
    at = end;
  }
  return lines + line + '\n';
}

}  // namespace Cli
