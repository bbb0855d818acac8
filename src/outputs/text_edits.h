// Changes at known places of a text.
#ifndef KELPBOX_OUTPUTS_TEXT_EDITS_H_
#define KELPBOX_OUTPUTS_TEXT_EDITS_H_

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

#include "jobs/source_text.h"

namespace Outputs {

class TextEdits {
 public:
  explicit TextEdits(std::string text);

  // Replaces a TOML string that is on one line; one of several lines stays as it is. Stretches must
  // not overlap.
  void replace(const Jobs::Span& span, const std::string& replacement);
  // Inserts a line before this one. Lines count from 1.
  void insert_line(std::uint32_t line, const std::string& contents);

  std::string apply() const;

 private:
  struct Edit {
    std::size_t at = 0;
    std::size_t length = 0;
    std::string replacement;
  };

  std::string text_;
  std::vector<std::size_t> lines_;  // where each begins
  std::vector<Edit> edits_;
};

}  // namespace Outputs

#endif  // KELPBOX_OUTPUTS_TEXT_EDITS_H_
