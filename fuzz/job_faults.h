// What the faults of a job have to be.
#ifndef KELPBOX_FUZZ_JOB_FAULTS_H_
#define KELPBOX_FUZZ_JOB_FAULTS_H_

#include <cstddef>
#include <nlohmann/json.hpp>
#include <string>
#include <vector>

#include "cli/failure_report.h"
#include "fuzz/property.h"
#include "fuzz/sections.h"
#include "jobs/diagnostic.h"

namespace Fuzz {

// The place lies in the text: right after the end of a line is the last column of it.
inline void require_place(const Jobs::Span& span) {
  if (span.line == 0) return;
  require(span.source != nullptr, "a line belongs to a text");
  const std::vector<std::string> text = lines(span.source->text);
  // The end of a file lies on a line of its own if the last line is ended.
  require(span.line <= text.size() + 1, "the line lies in the text");
  const std::size_t length = span.line <= text.size() ? text[span.line - 1].size() : 0;
  require(span.column >= 1 && span.column <= length + 1, "the column lies in the line");
  require(span.column - 1 + span.length <= length + 1, "the marked stretch lies in the line");
}

inline void require_places(const Jobs::Diagnostics& faults) {
  for (const Jobs::Diagnostic& fault : faults) {
    require(!fault.fault.empty(), "a fault has a message");
    require_place(fault.span);
    const std::string shown = Jobs::show(fault);
    for (const char c : shown) {
      const bool control = static_cast<unsigned char>(c) < 0x20 || c == 0x7F;
      require(!control || c == '\n', "a fault is shown without control characters");
    }
  }
}

// Whether the operation refuses the job. Other failures than a BadJob end the program.
template <typename Operation>
bool refused_job(Operation operation) {
  try {
    operation();
    return false;
  } catch (const Jobs::BadJob& bad) {
    require(!bad.faults.empty(), "a refused job has a fault");
    require_places(bad.faults);
    const std::string json = Cli::failure_json({Cli::Exit::bad_input, "refused", bad.faults});
    require(nlohmann::json::accept(json), "the faults are JSON");
    return true;
  }
}

}  // namespace Fuzz

#endif  // KELPBOX_FUZZ_JOB_FAULTS_H_
