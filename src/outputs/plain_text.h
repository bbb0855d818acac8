// Names and titles that come from job files and site scripts, made fit for results.
#ifndef KELPBOX_OUTPUTS_PLAIN_TEXT_H_
#define KELPBOX_OUTPUTS_PLAIN_TEXT_H_

#include <string>
#include <string_view>

namespace Outputs {

// The text on one line of valid UTF-8: readers of NetCDF and JSON refuse anything else. Control
// characters become blanks, and each byte that is not UTF-8 becomes U+FFFD.
std::string plain_text(std::string_view text);

}  // namespace Outputs

#endif  // KELPBOX_OUTPUTS_PLAIN_TEXT_H_
