// The message of whatever the library threw.
#ifndef KELPBOX_JOBS_FAILURE_H_
#define KELPBOX_JOBS_FAILURE_H_

#include <string>

namespace Jobs {

// To be called in a catch block: the message of the current exception, whether it is a std::string,
// a character pointer, a Script::LogItm or a std::exception.
std::string message_of_current();

// A comment that the library added to parameters, without its severity: "Poor match".
std::string comment_text(const std::string& comment);

}  // namespace Jobs

#endif  // KELPBOX_JOBS_FAILURE_H_
