// Matches what a part of a job says with what the library declares.
#ifndef KELPBOX_JOBS_BIND_PARAMETERS_H_
#define KELPBOX_JOBS_BIND_PARAMETERS_H_

#include <map>
#include <optional>
#include <string>
#include <vector>

#include "base/params.h"
#include "jobs/diagnostic.h"
#include "jobs/job.h"
#include "jobs/value.h"

namespace Jobs {

struct Declared {
  // As the library's `query` declares them. One that has a value need not be given.
  Base::Params params;
  // Values that need not be given, as a job would write them: "0 deg", "False".
  std::map<std::string, std::string> fallbacks;
  std::map<std::string, std::string> meanings;  // for the message of a missing one
  std::vector<std::string> optional;            // absent from the result unless they are given
  std::vector<std::string> own_keys;            // of the part, read elsewhere: "formula", "file"
};

// The values of all declared parameters, in the units in which they were given. Adds a fault for
// each key that is not declared, each parameter that is missing, and each value that does not fit;
// then there is no result.
std::optional<Base::Params> bind_parameters(const Part& part, const Declared& declared,
                                            Diagnostics& faults);

// One value for a declared quantity or enumeration. Adds a fault and returns nothing if it does not
// fit.
std::optional<Base::Quantity> bind_value(const std::string& name, const Value& value,
                                         const Base::Quantity& declared, Diagnostics& faults);

// The members of an enumeration, in their order.
std::vector<std::string> members_of(const Base::Quantity& enumeration);

// "use <a>, <b>, <c>", or "did you mean `<b>`?" when one of the names is near.
std::string advice(const std::string& name, const std::vector<std::string>& known);

}  // namespace Jobs

#endif  // KELPBOX_JOBS_BIND_PARAMETERS_H_
