// Numbers in the comments of results.
#ifndef KELPBOX_OUTPUTS_NUMBER_TEXT_H_
#define KELPBOX_OUTPUTS_NUMBER_TEXT_H_

#include <charconv>
#include <string>

namespace Outputs {

// The fewest digits that read back as the same number.
inline std::string number_text(double value) {
  char text[32];
  return {text, std::to_chars(text, text + sizeof text, value).ptr};
}

}  // namespace Outputs

#endif  // KELPBOX_OUTPUTS_NUMBER_TEXT_H_
