#include "jobs/captured_lines.h"

#include <new>

#include "base/streams.h"

namespace Jobs {
namespace {

// A stream leaves out what does not fit, and only remembers it.
std::string complete(const std::ostream& written, const std::ostringstream& lines) {
  if (written.bad()) throw std::bad_alloc();
  return lines.str();
}

}  // namespace

CapturedLines::CapturedLines()
    : old_progress_(Base::progress().rdbuf(progress_.rdbuf())),
      old_faults_(Base::script_faults().rdbuf(faults_.rdbuf())) {}

CapturedLines::~CapturedLines() {
  Base::progress().rdbuf(old_progress_);
  Base::script_faults().rdbuf(old_faults_);
}

std::string CapturedLines::progress() const { return complete(Base::progress(), progress_); }
std::string CapturedLines::faults() const { return complete(Base::script_faults(), faults_); }

}  // namespace Jobs
