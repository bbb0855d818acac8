// The message of whatever the library threw.
#ifndef KELPBOX_FACADE_FAILURE_MESSAGE_H_
#define KELPBOX_FACADE_FAILURE_MESSAGE_H_

#include <string>

namespace Kelpbox {

// To be called in a catch block: the message of the current exception, whether it is a std::string,
// a character pointer, a Script::LogItm or a std::exception.
std::string message_of_current();

}  // namespace Kelpbox

#endif  // KELPBOX_FACADE_FAILURE_MESSAGE_H_
