#include "cli/page_messages.h"

#include <algorithm>
#include <cstddef>
#include <utility>

#include "cli/embedded_file.h"
#include "cli/markdown.h"

namespace Cli {
namespace {

using Kind = PageBlock::Kind;

// Shorter ones, such as "m", are no messages.
constexpr std::size_t least_literal = 8;

bool has_letters(std::string_view text) { return !words_of(text).empty(); }

// A table's column of messages: "Message", "Its fixed message", "Log line after ...".
bool is_message_column(const std::string& head) {
  const std::string name = normal_form(head);
  return name.find("message") != name.npos || name.starts_with("log line");
}

bool looks_like_message(std::string_view text) {
  return text.find(' ') != text.npos || text.find("::") != text.npos;
}

// The messages of a cell of such a column.
std::vector<std::string> messages_of_cell(const std::string& cell) {
  std::vector<std::string> quoted = quoted_parts(cell);
  const bool words_quoted = std::any_of(quoted.begin(), quoted.end(), [](const std::string& part) {
    return MessagePattern(part).literal() >= 3 && has_letters(part);
  });
  if (!words_quoted && cell.find("](") != cell.npos) return {};  // refers to another page
  if (!words_quoted) return {plain_text(cell)};
  // Words beside the quoted parts stand for what varies: "`Unset parameter` and the name".
  if (has_letters(unquoted_text(cell))) {
    for (std::string& part : quoted) part.insert(0, "...").append("...");
  }
  return quoted;
}

// Collects the messages of one page.
class Reader {
 public:
  Reader(const EmbeddedFile& file, std::vector<PageMessage>& messages)
      : page_("docs/" + std::string(file.name)),
        blocks_(blocks_of(file.text)),
        messages_(messages) {}

  void read() {
    for (std::size_t i = 0; i < blocks_.size(); ++i) {
      const PageBlock& block = blocks_[i];
      if (block.kind == Kind::row) {
        read_row(i);
      } else if (block.kind == Kind::code) {
        read_code(i);
      } else if (block.kind != Kind::example) {
        for (const std::string& part : quoted_parts(block.text)) {
          if (looks_like_message(part)) add(part, i, {plain_text(block.text)}, false);
        }
      }
    }
  }

 private:
  void read_row(std::size_t at) {
    const PageBlock& row = blocks_[at];
    for (std::size_t column = 0; column < row.cells.size(); ++column) {
      const bool listed = column < row.heads.size() && is_message_column(row.heads[column]);
      const std::vector<std::string> messages =
          listed ? messages_of_cell(row.cells[column]) : quoted_parts(row.cells[column]);
      for (const std::string& message : messages) {
        if (listed) {
          add(message, at, text_of_row(at, column), true);
        } else if (looks_like_message(message)) {
          add(message, at, text_of_row(at, row.cells.size()), false);
        }
      }
    }
  }

  // The other cells with their heads. A single "Meaning" needs no head. A row that says little is
  // preceded by the paragraph above its table, and followed by the list below it.
  std::vector<std::string> text_of_row(std::size_t at, std::size_t message_column) const {
    const PageBlock& row = blocks_[at];
    std::vector<std::string> lines;
    std::size_t length = 0;
    for (std::size_t i = 0; i < row.cells.size() && i < row.heads.size(); ++i) {
      if (i == message_column || row.cells[i].empty()) continue;
      std::string cell = plain_text(row.cells[i]);
      length += cell.size();
      const std::string head = plain_text(row.heads[i]);
      if (head != "Meaning" && !head.empty()) cell.insert(0, ": ").insert(0, head);
      lines.push_back(std::move(cell));
    }
    constexpr std::size_t little = 30;
    if (length < little) {
      const std::size_t first = at - row.before;
      if (first > 0 && blocks_[first - 1].section == row.section) {
        lines.insert(lines.begin(), block_text(first - 1));
      }
      std::size_t next = at;
      while (next < blocks_.size() && blocks_[next].kind == Kind::row) ++next;
      for (; next < blocks_.size() && blocks_[next].kind == Kind::item &&
             blocks_[next].section == row.section;
           ++next) {
        lines.push_back("- " + plain_text(blocks_[next].text));
      }
    }
    return lines;
  }

  // Lines that the library writes, after the paragraph that introduces them.
  void read_code(std::size_t at) {
    const Kind before = at == 0 ? Kind::example : blocks_[at - 1].kind;
    if (before != Kind::paragraph && before != Kind::item) return;
    const std::string& code = blocks_[at].text;
    for (std::size_t begin = 0; begin < code.size();) {
      const std::size_t end = std::min(code.find('\n', begin), code.size());
      const std::string line = code.substr(begin, end - begin);
      if (words_of(line).size() >= 2) {
        add(line, at, {plain_text(blocks_[at - 1].text), line}, false);
      }
      begin = end + 1;
    }
  }

  std::string block_text(std::size_t at) const {
    const PageBlock& block = blocks_[at];
    const bool plain = block.kind != Kind::code && block.kind != Kind::example;
    return plain ? plain_text(block.text) : block.text;
  }

  void add(const std::string& message, std::size_t at, std::vector<std::string> lines,
           bool listed) {
    MessagePattern pattern(message);
    if (pattern.literal() < least_literal) return;
    messages_.push_back({std::move(pattern),
                         MessagePattern(message + " ..."),
                         words_of(message),
                         listed,
                         {message, std::move(lines), page_, blocks_[at].section}});
  }

  std::string page_;
  std::vector<PageBlock> blocks_;
  std::vector<PageMessage>& messages_;
};

}  // namespace

const std::vector<PageMessage>& page_messages() {
  static const std::vector<PageMessage> all = [] {
    std::vector<PageMessage> messages;
    for (const EmbeddedFile& page : embedded_pages()) Reader(page, messages).read();
    return messages;
  }();
  return all;
}

}  // namespace Cli
