// Builds messages from parts.
#ifndef KELPBOX_BASE_COMPOSE_H_
#define KELPBOX_BASE_COMPOSE_H_

#include <sstream>
#include <string>

namespace Base {

// Writes the parts one after the other, as a text stream with default formatting does. A stream
// manipulator among the parts changes the format of those after it. Throws std::bad_alloc if the
// message does not fit into memory.
template <typename... Parts>
std::string compose(const Parts&... parts) {
  std::ostringstream text;
  // A stream that only remembers a failure would return the beginning of the message.
  text.exceptions(std::ios_base::badbit);
  (text << ... << parts);
  return text.str();
}

}  // namespace Base

#endif  // KELPBOX_BASE_COMPOSE_H_
