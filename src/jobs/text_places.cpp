#include "jobs/text_places.h"

#include <algorithm>
#include <utility>

#include "base/utf8.h"

namespace Jobs {
namespace {

// A line can be as long as the file. Steps of this size keep each look-up short.
constexpr std::size_t stride = 64;

}  // namespace

TextPlaces::TextPlaces(std::shared_ptr<const SourceText> source) : source_(std::move(source)) {
  const std::string_view text = source_->text;
  std::size_t at = text.starts_with(Base::byte_order_mark) ? Base::byte_order_mark.size() : 0;
  lines_.push_back({static_cast<std::uint32_t>(at), 0});
  for (std::uint32_t character = 0; at < text.size(); ++character) {
    if (character % stride == 0) {
      strides_.push_back(static_cast<std::uint32_t>(at));
    }
    const bool line_end = text[at] == '\n';
    at += std::max<std::size_t>(Base::utf8_length(text, at), 1);
    if (line_end) {
      lines_.push_back({static_cast<std::uint32_t>(at), character + 1});
    }
  }
}

std::size_t TextPlaces::byte_of(TextPlace place) const {
  const std::string_view text = source_->text;
  if (place.line == 0 || place.line > lines_.size()) {
    return text.size();
  }
  const std::size_t character =
      lines_[place.line - 1].character + (place.character > 0 ? place.character - 1 : 0);
  if (character / stride >= strides_.size()) {
    return text.size();
  }
  std::size_t at = strides_[character / stride];
  for (std::size_t i = 0; i < character % stride && at < text.size(); ++i) {
    at += std::max<std::size_t>(Base::utf8_length(text, at), 1);
  }
  return at;
}

Span TextPlaces::span(TextPlace begin, TextPlace end) const {
  const std::size_t first = byte_of(begin);
  std::size_t last = byte_of(end);
  if (end.line > begin.line) {
    const std::string_view text = line(begin.line);
    last = std::max(first, lines_[begin.line - 1].byte + text.size());
  }
  return span_at(first, static_cast<std::uint32_t>(last > first ? last - first : 0));
}

Span TextPlaces::span_at(std::size_t byte, std::uint32_t length) const {
  const auto after = std::upper_bound(lines_.begin(), lines_.end(), byte,
                                      [](std::size_t b, const Line& l) { return b < l.byte; });
  const std::size_t index = after == lines_.begin() ? 0 : after - lines_.begin() - 1;
  const std::size_t line_byte = index == 0 ? 0 : lines_[index].byte;
  return {source_, static_cast<std::uint32_t>(index + 1),
          static_cast<std::uint32_t>(byte - line_byte + 1), length};
}

std::string_view TextPlaces::line(std::uint32_t number) const {
  if (number == 0 || number > lines_.size()) {
    return {};
  }
  std::string_view text = source_->text;
  text.remove_prefix(lines_[number - 1].byte);
  text = text.substr(0, text.find('\n'));
  if (text.ends_with('\r')) {
    text.remove_suffix(1);
  }
  return text;
}

}  // namespace Jobs
