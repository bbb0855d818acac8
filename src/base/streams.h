// The streams of the process that the library writes to. Nothing else in the library names one.
#ifndef KELPBOX_BASE_STREAMS_H_
#define KELPBOX_BASE_STREAMS_H_

#include <ostream>

namespace Base {

// The standard output: progress lines, remarks on a run, and the log. Hosts rely on these lines.
std::ostream& progress();

// The standard error: what the author of a site script has to mend.
std::ostream& script_faults();

}  // namespace Base

#endif  // KELPBOX_BASE_STREAMS_H_
