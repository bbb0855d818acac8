// What a job need not say: the only table of such values.
#ifndef KELPBOX_JOBS_FALLBACKS_H_
#define KELPBOX_JOBS_FALLBACKS_H_

#include <map>
#include <string>

namespace Jobs {

// The values for a part of a job, written as in a job. `part` is "run", "holds", "drive", "point",
// or the kind of a wave or change of the library. Empty for any other.
const std::map<std::string, std::string>& fallbacks_of(const std::string& part);

}  // namespace Jobs

#endif  // KELPBOX_JOBS_FALLBACKS_H_
