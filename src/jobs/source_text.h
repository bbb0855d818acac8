// A text that a job is read from, and places in it.
#ifndef KELPBOX_JOBS_SOURCE_TEXT_H_
#define KELPBOX_JOBS_SOURCE_TEXT_H_

#include <cstdint>
#include <memory>
#include <string>

namespace Jobs {

struct SourceText {
  std::string name;  // as the user gave it: a path, or "--set" for the command line
  std::string text;
};

// A stretch of one line. Lines and columns count from 1; a column is a byte. A default span has no
// source, for faults that lie in no text.
struct Span {
  std::shared_ptr<const SourceText> source;
  std::uint32_t line = 0;
  std::uint32_t column = 0;
  std::uint32_t length = 0;
};

}  // namespace Jobs

#endif  // KELPBOX_JOBS_SOURCE_TEXT_H_
