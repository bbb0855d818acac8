#include "cli/safe_text.h"

#include <array>
#include <cstddef>

#include "base/utf8.h"

namespace Cli {

namespace {

constexpr std::string_view erase_line = "\r\033[K";
constexpr std::array<std::string_view, 5> own_colours{"\033[0m", "\033[1m", "\033[32m",
                                                      "\033[1;31m", "\033[1;34m"};

// The length of a sequence of the program itself at this place, or 0.
std::size_t own_sequence(std::string_view text, std::size_t at, bool colours) {
  const std::string_view rest = text.substr(at);
  if (at == 0 && rest.starts_with(erase_line)) return erase_line.size();
  if (!colours) return 0;
  for (const std::string_view colour : own_colours) {
    if (rest.starts_with(colour)) return colour.size();
  }
  return 0;
}

}  // namespace

std::string safe_text(std::string_view text, bool colours) {
  std::string safe;
  safe.reserve(text.size());
  for (std::size_t at = 0; at < text.size();) {
    const std::size_t length = Base::utf8_length(text, at);
    if (length == 0) {
      safe += '?';
      ++at;
      continue;
    }
    const bool plain = text[at] == '\n' || text[at] == '\t' || !Base::is_control(text, at, length);
    const std::size_t kept = plain ? length : own_sequence(text, at, colours);
    safe += kept > 0 ? text.substr(at, kept) : std::string_view(" ");
    at += kept > 0 ? kept : length;
  }
  return safe;
}

}  // namespace Cli
