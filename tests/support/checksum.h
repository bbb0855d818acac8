// The checksum of a site, from its definition.
#ifndef KELPBOX_TESTS_SUPPORT_CHECKSUM_H_
#define KELPBOX_TESTS_SUPPORT_CHECKSUM_H_

#include <cstddef>
#include <cstdint>
#include <string>

namespace Testing {

// Adds the characters, signed, times 2^(position modulo 24), and keeps the low 32 bits.
inline std::uint32_t checksum_of(const std::string& characters) {
  std::int64_t sum = 0;
  for (std::size_t i = 0; i < characters.size(); ++i) {
    int c = static_cast<unsigned char>(characters[i]);
    if (c > 127) c -= 256;
    sum += std::int64_t{c} * (std::int64_t{1} << (i % 24));
  }
  return static_cast<std::uint32_t>(sum);
}

}  // namespace Testing

#endif  // KELPBOX_TESTS_SUPPORT_CHECKSUM_H_
