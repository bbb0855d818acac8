// Spans of a text from places that count characters instead of bytes.
#ifndef KELPBOX_JOBS_TEXT_PLACES_H_
#define KELPBOX_JOBS_TEXT_PLACES_H_

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string_view>
#include <vector>

#include "jobs/source_text.h"

namespace Jobs {

// A line and a character of it, from 1. A byte order mark does not count.
struct TextPlace {
  std::uint32_t line = 0;
  std::uint32_t character = 0;
};

class TextPlaces {
 public:
  // The text must be UTF-8, and shorter than 4 GiB.
  explicit TextPlaces(std::shared_ptr<const SourceText> source);

  // From `begin` to before `end`, or to the end of the first line if there are several.
  Span span(TextPlace begin, TextPlace end) const;
  // Where the byte is, with the given length.
  Span span_at(std::size_t byte, std::uint32_t length) const;
  // Without its line end. Empty beyond the text.
  std::string_view line(std::uint32_t number) const;

 private:
  struct Line {
    std::uint32_t byte = 0;
    std::uint32_t character = 0;
  };

  std::size_t byte_of(TextPlace place) const;

  std::shared_ptr<const SourceText> source_;
  std::vector<Line> lines_;             // where each begins
  std::vector<std::uint32_t> strides_;  // the byte of every 64th character
};

}  // namespace Jobs

#endif  // KELPBOX_JOBS_TEXT_PLACES_H_
