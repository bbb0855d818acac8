#include "outputs/text_edits.h"

#include <algorithm>
#include <string_view>
#include <utility>

namespace Outputs {
namespace {

// Whether the stretch is a whole TOML string, and not the first line of a longer one.
bool is_whole_string(std::string_view text) {
  for (const std::string_view quote : {"\"\"\"", "'''", "\"", "'"}) {
    if (!text.starts_with(quote)) continue;
    return text.size() >= 2 * quote.size() && text.ends_with(quote);
  }
  return false;
}

}  // namespace

TextEdits::TextEdits(std::string text) : text_(std::move(text)), lines_{0} {
  for (std::size_t i = 0; i < text_.size(); ++i) {
    if (text_[i] == '\n') lines_.push_back(i + 1);
  }
}

void TextEdits::replace(const Jobs::Span& span, const std::string& replacement) {
  if (span.line == 0 || span.line > lines_.size()) return;
  const std::size_t at = lines_[span.line - 1] + span.column - 1;
  if (!is_whole_string(std::string_view(text_).substr(at, span.length))) return;
  edits_.push_back({at, span.length, replacement});
}

void TextEdits::insert_line(std::uint32_t line, const std::string& contents) {
  edits_.push_back({lines_[line - 1], 0, contents + "\n"});
}

std::string TextEdits::apply() const {
  std::vector<Edit> edits = edits_;
  std::sort(edits.begin(), edits.end(), [](const Edit& a, const Edit& b) { return a.at > b.at; });
  std::string text = text_;
  for (const Edit& edit : edits) text.replace(edit.at, edit.length, edit.replacement);
  return text;
}

}  // namespace Outputs
