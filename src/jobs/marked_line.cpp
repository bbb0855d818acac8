#include "jobs/marked_line.h"

#include <algorithm>
#include <cstdint>
#include <vector>

#include "base/utf8.h"

namespace Jobs {
namespace {

constexpr std::size_t widest_line = 100;  // characters
constexpr std::size_t shown_before = 30;  // of a line that is cut, before the carets

// A text as it goes to a terminal: one element for each column.
using Columns = std::vector<std::string>;

// With the column that the byte at `mark` is in.
Columns columns_of(std::string_view text, std::size_t mark = 0, std::size_t* column = nullptr) {
  Columns columns;
  std::size_t at = 0;
  while (at < text.size()) {
    if (column != nullptr && at <= mark) {
      *column = columns.size();
    }
    const std::size_t length = Base::utf8_length(text, at);
    const std::string_view character = text.substr(at, std::max<std::size_t>(length, 1));
    if (length == 0) {
      columns.emplace_back("?");
    } else if (Base::is_control(text, at, length)) {
      columns.emplace_back(" ");
    } else if (character != Base::byte_order_mark) {
      columns.emplace_back(character);
    }
    at += character.size();
  }
  if (column != nullptr && mark >= text.size()) {
    *column = columns.size() + (mark - text.size());
  }
  return columns;
}

std::string joined(const Columns& columns, std::size_t begin, std::size_t end) {
  std::string text;
  for (std::size_t i = begin; i < std::min(end, columns.size()); ++i) {
    text += columns[i];
  }
  return text;
}

std::string_view line_of(std::string_view text, std::uint32_t number) {
  for (std::uint32_t line = 1; line < number; ++line) {
    const std::size_t end = text.find('\n');
    if (end == std::string_view::npos) {
      return {};
    }
    text.remove_prefix(end + 1);
  }
  text = text.substr(0, text.find('\n'));
  if (!text.empty() && text.back() == '\r') {
    text.remove_suffix(1);
  }
  return text;
}

// Of a line that can be as long as the file, no more bytes than could be shown.
struct Window {
  std::string_view text;
  bool begins_late = false;
  bool ends_early = false;
};

Window window_of(std::string_view line, std::size_t& first) {
  constexpr std::size_t reach = 8 * widest_line;
  Window window = {line, false, false};
  if (first < line.size() && line.size() - first > reach) {
    window.text.remove_suffix(line.size() - first - reach);
    window.ends_early = true;
  }
  std::size_t begin = std::min(first, line.size());
  begin -= std::min(begin, reach);
  while (begin > 0 && (static_cast<unsigned char>(line[begin]) & 0xC0) == 0x80) {
    --begin;
  }
  window.text.remove_prefix(begin);
  window.begins_late = begin > 0;
  first -= begin;
  return window;
}

}  // namespace

std::string clean_text(std::string_view text, std::size_t longest) {
  const Columns columns = columns_of(text.substr(0, 4 * (longest + 1)));
  std::string result = joined(columns, 0, longest);
  if (columns.size() > longest) {
    result += "...";
  }
  return result;
}

MarkedLine marked_line(const Span& span) {
  std::size_t first = span.column > 0 ? span.column - 1 : 0;
  const Window window = window_of(line_of(span.source->text, span.line), first);
  const std::string_view line = window.text;
  std::size_t begin = 0;
  std::size_t end = 0;
  const Columns columns = columns_of(line, first, &begin);
  columns_of(line, std::min(first + span.length, std::max(line.size(), first)), &end);
  begin = std::min(begin, columns.size());
  end = std::max(std::min(end, columns.size()), begin + 1);

  MarkedLine marked;
  std::size_t from = 0;
  std::size_t to = columns.size();
  if (columns.size() > widest_line) {
    from = begin > shown_before ? begin - shown_before : 0;
    from = std::min(from, columns.size() - widest_line);
    to = from + widest_line;
    end = std::min(end, to);
  }
  const std::string left = from > 0 || window.begins_late ? "..." : "";
  const bool cut = to < columns.size() || window.ends_early;
  marked.text = left + joined(columns, from, to) + (cut ? "..." : "");
  marked.blanks = left.size() + begin - from;
  marked.carets = std::max<std::size_t>(end - begin, 1);
  return marked;
}

}  // namespace Jobs
