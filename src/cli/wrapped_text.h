// Plain text in lines of limited width.
#ifndef KELPBOX_CLI_WRAPPED_TEXT_H_
#define KELPBOX_CLI_WRAPPED_TEXT_H_

#include <cstddef>
#include <string>
#include <string_view>

namespace Cli {

// The number of characters of UTF-8 text.
std::size_t characters(std::string_view text);

// The text's words in lines of at most `width` characters, each ended by a line end. The first line
// begins with `first`, the others with `other`. A word that is too long has a line of its own.
std::string wrapped(const std::string& text, const std::string& first, const std::string& other,
                    std::size_t width);

}  // namespace Cli

#endif  // KELPBOX_CLI_WRAPPED_TEXT_H_
