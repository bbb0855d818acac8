// The kinds of changes that a job can name.
#ifndef KELPBOX_JOBS_CHANGE_KINDS_H_
#define KELPBOX_JOBS_CHANGE_KINDS_H_

#include <string>
#include <vector>

#include "jobs/job.h"
#include "sea/modifier.h"

namespace Jobs {

// The library's modifiers. Its enumeration also has names without a class.
std::vector<std::string> modifier_names();
// The library's modifiers, then the ready changes.
std::vector<std::string> change_kinds();
// The label for an unknown kind.
std::string advice_for_kind(const std::string& kind);

bool takes_formula(const std::string& modifier);
const char* formula_example(const std::string& modifier);
// "direction"
std::string slot_name(Synthesis::Modifier::Slot slot);

// Whether a message of a failed build can be about the change.
bool is_about(const std::string& message, const Part& change);

}  // namespace Jobs

#endif  // KELPBOX_JOBS_CHANGE_KINDS_H_
