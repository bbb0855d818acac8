#include "cli/wrapped.h"

namespace Cli {

std::string wrapped(std::string_view text, const std::string& first, std::size_t indent) {
  std::string lines = first;
  std::size_t column = first.size();
  bool at_start = true;
  while (!text.empty()) {
    const std::size_t end = text.find_first_of(" \n");
    const std::string_view word = text.substr(0, end);
    const std::size_t blank = at_start ? 0 : 1;
    if (!at_start && column + blank + word.size() > help_width) {
      lines += "\n" + std::string(indent, ' ');
      column = indent;
    } else if (!at_start) {
      lines += ' ';
      ++column;
    }
    lines += word;
    column += word.size();
    at_start = false;
    if (end == std::string_view::npos) break;
    if (text[end] == '\n') {
      const bool empty_line = end + 1 < text.size() && text[end + 1] == '\n';
      lines += empty_line ? "\n" : "\n" + std::string(indent, ' ');
      column = indent;
      at_start = true;
    }
    text.remove_prefix(end + 1);
  }
  return lines + "\n";
}

std::string term_line(std::string_view term, std::string_view text, std::size_t width) {
  std::string first = "  " + std::string(term);
  if (text.empty()) return first + "\n";
  if (first.size() + 2 > width) return first + "\n" + wrapped(text, std::string(width, ' '), width);
  first.resize(width, ' ');
  return wrapped(text, first, width);
}

}  // namespace Cli
