// Checksums of files: SHA-256 (FIPS 180-4) in hexadecimal digits.
#ifndef KELPBOX_OUTPUTS_CHECKSUM_H_
#define KELPBOX_OUTPUTS_CHECKSUM_H_

#include <string>
#include <string_view>

namespace Outputs {

std::string sha256(std::string_view text);

// Throws CannotWrite with the name for messages if the file cannot be read.
std::string sha256_of_file(const std::string& path, const std::string& shown);

}  // namespace Outputs

#endif  // KELPBOX_OUTPUTS_CHECKSUM_H_
