// The process's streams. Only this file and its .cpp name them.
#ifndef KELPBOX_BASE_STREAMS_H_
#define KELPBOX_BASE_STREAMS_H_

#include <ostream>
#include <string>

namespace Base {

// Standard output: progress lines, remarks on a run, and the log. Hosts read these lines.
//
// The stream depends on the calling thread, so keep it only for the duration of a call.
std::ostream& progress();

// Standard error: faults that the author of a site script has to correct. As `progress`.
std::ostream& script_faults();

// Switches for the calling thread whether both streams collect what is written to them, instead of
// writing it. The collected bytes are those that standard output would get.
void collect_output(bool on);

// What the calling thread has collected since the last call. Above 1 MiB, and when memory runs out,
// the rest is left out: the last line then says how many lines are missing.
std::string take_output();

// Writes the parts as one line to `progress` and flushes it, so that hosts get it at once.
template <typename... Parts>
void progress_line(const Parts&... parts) {
  (progress() << ... << parts) << std::endl;
}

}  // namespace Base

#endif  // KELPBOX_BASE_STREAMS_H_
