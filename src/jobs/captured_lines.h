// Collects what the library writes to the process's streams while it works.
#ifndef KELPBOX_JOBS_CAPTURED_LINES_H_
#define KELPBOX_JOBS_CAPTURED_LINES_H_

#include <sstream>
#include <streambuf>
#include <string>

namespace Jobs {

// Replaces the buffers of the two streams of base/streams.h until it is destroyed. One at a time in
// a process.
class CapturedLines {
 public:
  CapturedLines();
  ~CapturedLines();
  CapturedLines(const CapturedLines&) = delete;
  CapturedLines& operator=(const CapturedLines&) = delete;

  // Both throw std::bad_alloc if not all lines fitted into memory.
  std::string progress() const;
  std::string faults() const;

 private:
  std::ostringstream progress_;
  std::ostringstream faults_;
  std::streambuf* old_progress_;
  std::streambuf* old_faults_;
};

}  // namespace Jobs

#endif  // KELPBOX_JOBS_CAPTURED_LINES_H_
