// The blocks of a page: what can explain a message.
#ifndef KELPBOX_CLI_MARKDOWN_H_
#define KELPBOX_CLI_MARKDOWN_H_

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace Cli {

struct PageBlock {
  // Code is indented: lines that the library writes. An example is fenced.
  enum class Kind { paragraph, item, row, code, example };

  Kind kind = Kind::paragraph;
  std::string section;  // the heading above, without marks; the title of the page at its top
  std::string text;     // Markdown, its lines joined by blanks; of code, the lines as they are
  std::vector<std::string> cells;  // of a row, Markdown
  std::vector<std::string> heads;  // of the row's table
  std::size_t before = 0;          // blocks of this table or list that precede this one
};

// Headings are no blocks of their own.
std::vector<PageBlock> blocks_of(std::string_view page);

// Without marks of emphasis, code and links.
std::string plain_text(std::string_view markdown);

// What the text quotes: code spans, and what stands in double quotes. Quotes inside a quoted text
// belong to it: "File "..." includes itself" is one.
std::vector<std::string> quoted_parts(std::string_view markdown);

// What is left without the quoted parts, as plain text.
std::string unquoted_text(std::string_view markdown);

}  // namespace Cli

#endif  // KELPBOX_CLI_MARKDOWN_H_
