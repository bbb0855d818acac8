// UTF-8 as far as messages need it.
#ifndef KELPBOX_BASE_UTF8_H_
#define KELPBOX_BASE_UTF8_H_

#include <cstddef>
#include <string_view>

namespace Base {

// The number of bytes of the character that begins at `at`; 0 if the bytes are not UTF-8
// (RFC 3629: no overlong forms, no surrogates, nothing above U+10FFFF).
std::size_t utf8_length(std::string_view text, std::size_t at);

// The place of the first byte that is not UTF-8, or npos.
std::size_t find_invalid_utf8(std::string_view text);

// Whether the character of `length` bytes controls a terminal instead of being seen: C0, DEL, C1.
bool is_control(std::string_view text, std::size_t at, std::size_t length);

inline constexpr std::string_view byte_order_mark = "\xEF\xBB\xBF";

}  // namespace Base

#endif  // KELPBOX_BASE_UTF8_H_
