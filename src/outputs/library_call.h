// Calls of the library while results are written.
#ifndef KELPBOX_OUTPUTS_LIBRARY_CALL_H_
#define KELPBOX_OUTPUTS_LIBRARY_CALL_H_

#include <string>
#include <vector>

#include "base/params.h"
#include "jobs/captured_lines.h"
#include "jobs/diagnostic.h"
#include "jobs/failure.h"
#include "jobs/input_files.h"
#include "jobs/run.h"

namespace Outputs {

// Calls the library and adds its lines to the run's log. Throws BadJob with "<what>: <message>" at
// the place if the library refuses.
template <typename Call>
void library_call(Jobs::Run& run, const std::string& what, const Jobs::Span& place, Call call) {
  const Jobs::CapturedLines lines;
  const auto keep = [&] {
    run.log += Jobs::without_paths(lines.progress() + lines.faults(), run.inputs);
  };
  try {
    call();
  } catch (...) {
    const std::string message = Jobs::message_of_current();
    keep();
    throw Jobs::BadJob{{{what + ": " + message, place, ""}}};
  }
  keep();
}

// The comments that the library added, without their severity.
inline std::vector<std::string> comments_of(const Base::Params& params) {
  std::vector<std::string> comments;
  for (std::uint32_t i = 0; i < params.comment_size(); ++i) {
    const std::string text = Jobs::comment_text(params.comment(i));
    comments.push_back(text == "Poor match" ? "a value was fitted to the repeat or the range"
                                            : text);
  }
  return comments;
}

}  // namespace Outputs

#endif  // KELPBOX_OUTPUTS_LIBRARY_CALL_H_
