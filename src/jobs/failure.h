// The messages of the library, as a job reports them.
#ifndef KELPBOX_JOBS_FAILURE_H_
#define KELPBOX_JOBS_FAILURE_H_

#include <string>

#include "facade/failure_message.h"

namespace Jobs {

using Kelpbox::message_of_current;

// A comment that the library added to parameters, without its severity: "Poor match".
std::string comment_text(const std::string& comment);

}  // namespace Jobs

#endif  // KELPBOX_JOBS_FAILURE_H_
