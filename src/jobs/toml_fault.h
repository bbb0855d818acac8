// Messages for syntax errors, in the words of a job instead of those of a parser.
#ifndef KELPBOX_JOBS_TOML_FAULT_H_
#define KELPBOX_JOBS_TOML_FAULT_H_

#include <string>

#include "jobs/diagnostic.h"
#include "jobs/text_places.h"

namespace Jobs {

// `description` is the parser's: "Error while parsing array: expected ..., saw ...".
Diagnostic syntax_fault(const TextPlaces& places, TextPlace place, const std::string& description);

}  // namespace Jobs

#endif  // KELPBOX_JOBS_TOML_FAULT_H_
