#include "outputs/plain_text.h"

#include <algorithm>
#include <cstddef>

#include "base/utf8.h"

namespace Outputs {

std::string plain_text(std::string_view text) {
  std::string plain;
  for (std::size_t at = 0; at < text.size();) {
    const std::size_t length = Base::utf8_length(text, at);
    if (length == 0) {
      plain += "\xEF\xBF\xBD";
    } else if (Base::is_control(text, at, length)) {
      plain += ' ';
    } else {
      plain += text.substr(at, length);
    }
    at += std::max<std::size_t>(length, 1);
  }
  return plain;
}

}  // namespace Outputs
