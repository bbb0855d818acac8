// Texts and source lines as they can be shown in a terminal.
#ifndef KELPBOX_JOBS_MARKED_LINE_H_
#define KELPBOX_JOBS_MARKED_LINE_H_

#include <cstddef>
#include <string>
#include <string_view>

#include "jobs/source_text.h"

namespace Jobs {

// A text without what a terminal would obey: control characters become blanks, bytes that are not
// UTF-8 question marks. More than the given number of characters are cut.
std::string clean_text(std::string_view text, std::size_t longest);

struct MarkedLine {
  std::string text;
  std::size_t blanks = 0;  // before the carets
  std::size_t carets = 1;
};

// The line of a span, about 100 characters of it around the span. The span must have a source.
MarkedLine marked_line(const Span& span);

}  // namespace Jobs

#endif  // KELPBOX_JOBS_MARKED_LINE_H_
