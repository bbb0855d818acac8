#include "base/utf8.h"

namespace Base {
namespace {

unsigned char byte(std::string_view text, std::size_t at) {
  return at < text.size() ? static_cast<unsigned char>(text[at]) : 0;
}

}  // namespace

std::size_t utf8_length(std::string_view text, std::size_t at) {
  if (at >= text.size()) {
    return 0;
  }
  const unsigned char first = byte(text, at);
  if (first < 0x80) {
    return 1;
  }
  // The first byte decides the length, and limits the second: the rest would be overlong, a
  // surrogate or above U+10FFFF.
  const std::size_t length = first >= 0xF0 ? 4 : first >= 0xE0 ? 3 : 2;
  if (first < 0xC2 || first > 0xF4) {
    return 0;
  }
  const unsigned char low = first == 0xE0 ? 0xA0 : first == 0xF0 ? 0x90 : 0x80;
  const unsigned char high = first == 0xED ? 0x9F : first == 0xF4 ? 0x8F : 0xBF;
  const unsigned char second = byte(text, at + 1);
  if (second < low || second > high) {
    return 0;
  }
  for (std::size_t i = 2; i < length; ++i) {
    if ((byte(text, at + i) & 0xC0) != 0x80) {
      return 0;
    }
  }
  return length;
}

std::size_t find_invalid_utf8(std::string_view text) {
  std::size_t at = 0;
  while (at < text.size()) {
    const std::size_t length = utf8_length(text, at);
    if (length == 0) {
      return at;
    }
    at += length;
  }
  return std::string_view::npos;
}

bool is_control(std::string_view text, std::size_t at, std::size_t length) {
  const unsigned char first = byte(text, at);
  if (length == 1) {
    return first < 0x20 || first == 0x7F;
  }
  return length == 2 && first == 0xC2 && byte(text, at + 1) < 0xA0;
}

}  // namespace Base
