#include "jobs/captured_lines.h"

#include "base/streams.h"

namespace Jobs {

CapturedLines::CapturedLines()
    : old_progress_(Base::progress().rdbuf(progress_.rdbuf())),
      old_faults_(Base::script_faults().rdbuf(faults_.rdbuf())) {}

CapturedLines::~CapturedLines() {
  Base::progress().rdbuf(old_progress_);
  Base::script_faults().rdbuf(old_faults_);
}

}  // namespace Jobs
