// Text in lines of a limited width.
#ifndef KELPBOX_CLI_WRAPPED_H_
#define KELPBOX_CLI_WRAPPED_H_

#include <cstddef>
#include <string>
#include <string_view>

namespace Cli {

inline constexpr std::size_t help_width = 80;

// Words in lines of at most `help_width` columns, the first with `first` before it and the others
// with `indent` blanks. Line ends of the text are kept. A word that is too long has its own line.
std::string wrapped(std::string_view text, const std::string& first, std::size_t indent);

// A term in a column of `width`, and its explanation beside it or, after a longer term, below it.
std::string term_line(std::string_view term, std::string_view text, std::size_t width);

}  // namespace Cli

#endif  // KELPBOX_CLI_WRAPPED_H_
