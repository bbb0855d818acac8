// Bytes as browsers can unpack them by themselves.
#ifndef KELPBOX_OUTPUTS_DEFLATED_H_
#define KELPBOX_OUTPUTS_DEFLATED_H_

#include <string>
#include <string_view>

namespace Outputs {

// The zlib stream (RFC 1950) of the bytes.
std::string deflated(std::string_view bytes);

// RFC 4648, without line ends.
std::string base64(std::string_view bytes);

}  // namespace Outputs

#endif  // KELPBOX_OUTPUTS_DEFLATED_H_
