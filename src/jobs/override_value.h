// Values of overrides: TOML, or the text itself when that is no TOML value.
#ifndef KELPBOX_JOBS_OVERRIDE_VALUE_H_
#define KELPBOX_JOBS_OVERRIDE_VALUE_H_

#include <cstddef>
#include <memory>

#include "jobs/source_text.h"
#include "jobs/value.h"

namespace Jobs {

// From the byte `begin` of an option to its end. Blanks at both ends are ignored. Spans point into
// the option.
Value value_from(const std::shared_ptr<const SourceText>& option, std::size_t begin);

// The value that a text in a job means. All its spans are that of the text.
Value value_of(const Value& text);

}  // namespace Jobs

#endif  // KELPBOX_JOBS_OVERRIDE_VALUE_H_
