// A message put together from parts, each written as a default text stream writes it.
#ifndef KELPBOX_SYNTHESIS_COMPOSE_H_
#define KELPBOX_SYNTHESIS_COMPOSE_H_

#include <sstream>
#include <string>

namespace Synthesis {

template <typename... Parts>
std::string compose(const Parts&... parts) {
  std::ostringstream text;
  (text << ... << parts);
  return text.str();
}

}  // namespace Synthesis

#endif  // KELPBOX_SYNTHESIS_COMPOSE_H_
