// The process's streams. Only this file and its .cpp name them.
#ifndef KELPBOX_BASE_STREAMS_H_
#define KELPBOX_BASE_STREAMS_H_

#include <ostream>

namespace Base {

// Standard output: progress lines, remarks on a run, and the log. Hosts read these lines.
std::ostream& progress();

// Standard error: faults that the author of a site script has to correct.
std::ostream& script_faults();

// Writes the parts as one line to `progress` and flushes it, so that hosts get it at once.
template <typename... Parts>
void progress_line(const Parts&... parts) {
  (progress() << ... << parts) << std::endl;
}

}  // namespace Base

#endif  // KELPBOX_BASE_STREAMS_H_
