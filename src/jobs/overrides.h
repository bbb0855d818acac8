// Values of a job that are replaced without editing it: those of [[set]], then those of --set.
#ifndef KELPBOX_JOBS_OVERRIDES_H_
#define KELPBOX_JOBS_OVERRIDES_H_

#include <string>
#include <string_view>
#include <vector>

#include "jobs/diagnostic.h"
#include "jobs/value.h"

namespace Jobs {

// A text as a TOML string, with its quotation marks.
std::string toml_string(std::string_view text);

// Applies the job's [[set]] entries and then `options`, each `key=value` as given to --set. A value
// is TOML, or the text itself when that is no TOML value: sea.hs="100 mm" and sea.hs=100 mm are the
// same. Members that are missing are added. Adds a fault for each key that leads nowhere.
void apply_overrides(Value& job, const std::vector<std::string>& options, Diagnostics& faults);

// The text of a job with [[set]] entries for the options appended, so that it runs without them.
std::string with_overrides(const std::string& text, const std::vector<std::string>& options);

}  // namespace Jobs

#endif  // KELPBOX_JOBS_OVERRIDES_H_
