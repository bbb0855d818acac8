#include "outputs/plain_text.h"

#include <cstddef>
#include <cstdint>

namespace Outputs {
namespace {

std::uint32_t byte_at(std::string_view text, std::size_t at) {
  return static_cast<unsigned char>(text[at]);
}

// The bytes of the sequence at the start of the text, or 0 if it is not UTF-8 (Unicode 15,
// table 3-7: no overlong forms, no surrogates, nothing above U+10FFFF).
std::size_t sequence_length(std::string_view text) {
  const std::uint32_t first = byte_at(text, 0);
  if (first < 0x80) return 1;
  const std::size_t length = first < 0xC2 ? 0 : first < 0xE0 ? 2 : first < 0xF0 ? 3 : 4;
  if (length == 0 || first > 0xF4 || text.size() < length) return 0;
  for (std::size_t i = 1; i < length; ++i) {
    if ((byte_at(text, i) & 0xC0) != 0x80) return 0;
  }
  const std::uint32_t second = byte_at(text, 1);
  const bool wrong = (first == 0xE0 && second < 0xA0) || (first == 0xED && second > 0x9F) ||
                     (first == 0xF0 && second < 0x90) || (first == 0xF4 && second > 0x8F);
  return wrong ? 0 : length;
}

}  // namespace

std::string plain_text(std::string_view text) {
  std::string plain;
  while (!text.empty()) {
    const std::size_t length = sequence_length(text);
    if (length == 0) {
      plain += "\xEF\xBF\xBD";
    } else if (length == 1 && (byte_at(text, 0) < 0x20 || text[0] == 0x7F)) {
      plain += ' ';
    } else {
      plain += text.substr(0, length);
    }
    text.remove_prefix(length == 0 ? 1 : length);
  }
  return plain;
}

}  // namespace Outputs
