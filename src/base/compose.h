// A message put together from parts, each written as a default text stream writes it.
#ifndef KELPBOX_BASE_COMPOSE_H_
#define KELPBOX_BASE_COMPOSE_H_

#include <sstream>
#include <string>

namespace Base {

template <typename... Parts>
std::string compose(const Parts&... parts) {
  std::ostringstream text;
  (text << ... << parts);
  return text.str();
}

}  // namespace Base

#endif  // KELPBOX_BASE_COMPOSE_H_
