#include "jobs/key_path.h"

#include <algorithm>

namespace Jobs {
namespace {

// The first of the characters that is not between quotation marks, or npos.
std::size_t find_bare(std::string_view text, char wanted, std::size_t at) {
  char quote = '\0';
  for (; at < text.size(); ++at) {
    const char c = text[at];
    if (quote != '\0') {
      quote = c == quote ? '\0' : quote;
    } else if (c == '"' || c == '\'') {
      quote = c;
    } else if (c == wanted) {
      return at;
    }
  }
  return std::string_view::npos;
}

bool is_quoted(std::string_view name) {
  return name.size() >= 2 && (name.front() == '"' || name.front() == '\'') &&
         name.find(name.front(), 1) == name.size() - 1;
}

}  // namespace

std::optional<KeyPath> split_key_path(std::string_view text) {
  KeyPath path;
  std::size_t at = 0;
  for (;;) {
    const std::size_t end = std::min(find_bare(text, '.', at), text.size());
    const std::string_view part = text.substr(at, end - at);
    const std::size_t first = part.find_first_not_of(" \t");
    if (first == std::string_view::npos) {
      return std::nullopt;
    }
    const std::string_view word = part.substr(first, part.find_last_not_of(" \t") + 1 - first);
    std::string_view name = word;
    if (is_quoted(word)) {
      name = word.substr(1, word.size() - 2);
    } else if (word.find_first_of("\"'") != std::string_view::npos) {
      return std::nullopt;
    }
    if (name.empty()) {
      return std::nullopt;
    }
    path.push_back({std::string(name), at + first, word.size()});
    if (end == text.size()) {
      return path;
    }
    at = end + 1;
  }
}

std::size_t find_equals(std::string_view option) { return find_bare(option, '=', 0); }

std::size_t number_of(const std::string& name) {
  if (name.empty() || name.size() > 9 ||
      name.find_first_not_of("0123456789") != std::string::npos) {
    return 0;
  }
  return std::stoul(name);
}

}  // namespace Jobs
