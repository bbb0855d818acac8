#include "jobs/diagnostic.h"

#include <algorithm>
#include <cstddef>
#include <string_view>
#include <tuple>
#include <utility>

#include "jobs/utf8.h"

namespace Jobs {
namespace {

constexpr std::size_t longest_message = 400;  // characters
constexpr std::size_t widest_line = 100;      // characters
constexpr std::size_t shown_before = 30;      // of a line that is cut, before the carets

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
    const std::size_t length = utf8_length(text, at);
    const std::string_view character = text.substr(at, std::max<std::size_t>(length, 1));
    if (length == 0) {
      columns.emplace_back("?");
    } else if (is_control(text, at, length)) {
      columns.emplace_back(" ");
    } else if (character != byte_order_mark) {
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

// A message, without what could disturb a terminal or bury the rest.
std::string clean(std::string_view text) {
  const Columns columns = columns_of(text.substr(0, 4 * (longest_message + 1)));
  std::string result = joined(columns, 0, longest_message);
  if (columns.size() > longest_message) {
    result += "...";
  }
  return result;
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

struct MarkedLine {
  std::string text;
  std::size_t blanks = 0;  // before the carets
  std::size_t carets = 1;
};

MarkedLine marked_line(const Span& span) {
  const std::string_view line = line_of(span.source->text, span.line);
  const std::size_t first = span.column > 0 ? span.column - 1 : 0;
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
  const std::string left = from > 0 ? "..." : "";
  marked.text = left + joined(columns, from, to) + (to < columns.size() ? "..." : "");
  marked.blanks = left.size() + begin - from;
  marked.carets = std::max<std::size_t>(end - begin, 1);
  return marked;
}

class Painter {
 public:
  explicit Painter(Colour colour) : on_(colour == Colour::on) {}
  std::string red(const std::string& text) const { return paint("\033[1;31m", text); }
  std::string blue(const std::string& text) const { return paint("\033[1;34m", text); }
  std::string bold(const std::string& text) const { return paint("\033[1m", text); }

 private:
  std::string paint(const char* code, const std::string& text) const {
    return on_ ? code + text + "\033[0m" : text;
  }
  bool on_;
};

}  // namespace

BadJob bad_job(std::string fault, Span span, std::string label) {
  BadJob bad;
  Diagnostic& only = bad.faults.emplace_back();
  only.fault = std::move(fault);
  only.span = std::move(span);
  only.label = std::move(label);
  return bad;
}

void sort_by_place(Diagnostics& faults) {
  // Sources have the order of their first faults.
  std::vector<const SourceText*> sources = {nullptr};
  for (const Diagnostic& fault : faults) {
    if (std::find(sources.begin(), sources.end(), fault.span.source.get()) == sources.end()) {
      sources.push_back(fault.span.source.get());
    }
  }
  const auto place = [&sources](const Diagnostic& fault) {
    const auto source = std::find(sources.begin(), sources.end(), fault.span.source.get());
    return std::make_tuple(source - sources.begin(), fault.span.line, fault.span.column);
  };
  std::stable_sort(
      faults.begin(), faults.end(),
      [&place](const Diagnostic& a, const Diagnostic& b) { return place(a) < place(b); });
}

std::string show(const Diagnostic& fault, Colour colour) {
  const Painter painter(colour);
  const Span& span = fault.span;
  const std::string label = clean(fault.label);
  std::string text = painter.red("error") + painter.bold(": " + clean(fault.fault)) + "\n";
  const bool has_line = span.source != nullptr && span.line > 0;
  const std::string number = has_line ? std::to_string(span.line) : "";
  const std::string margin(std::max<std::size_t>(number.size(), 1), ' ');
  if (span.source != nullptr) {
    text += margin + painter.blue("-->") + " " + clean(span.source->name);
    if (has_line) {
      text += ":" + number + ":" + std::to_string(span.column);
    }
    text += "\n";
  }
  if (has_line) {
    const MarkedLine marked = marked_line(span);
    const std::string bar = painter.blue(margin + " |");
    text += bar + "\n";
    text += painter.blue(number + " |") + (marked.text.empty() ? "" : " ") + marked.text + "\n";
    text += bar + " " + std::string(marked.blanks, ' ');
    text +=
        painter.red(std::string(marked.carets, '^') + (label.empty() ? "" : " " + label)) + "\n";
  } else if (!label.empty()) {
    text += margin + painter.blue(" =") + " " + label + "\n";
  }
  return text;
}

}  // namespace Jobs
