// Reads TOML 1.0 into a Value.
#ifndef KELPBOX_JOBS_READ_TOML_H_
#define KELPBOX_JOBS_READ_TOML_H_

#include <memory>

#include "jobs/source_text.h"
#include "jobs/value.h"

namespace Jobs {

// Throws BadJob with the first syntax error, which is the only one that a TOML parser can find.
Value read_toml(const std::shared_ptr<const SourceText>& source);

// Reads a job file; "-" is the standard input. Throws BadJob for a file that cannot be read, is not
// a regular file, is larger than 16 MiB or is not text.
std::shared_ptr<const SourceText> read_source(const std::string& path);

}  // namespace Jobs

#endif  // KELPBOX_JOBS_READ_TOML_H_
