#include "outputs/checksum.h"

#include <fcntl.h>
#include <sha2.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <memory>

#include "outputs/cannot_write.h"

namespace Outputs {
namespace {

std::string digits(SHA2_CTX& context) {
  std::array<char, SHA256_DIGEST_STRING_LENGTH> text{};
  SHA256End(&context, text.data());
  return text.data();
}

// Feeds the file to the context. Returns errno.
int read_into(SHA2_CTX& context, int descriptor) {
  constexpr std::size_t piece = std::size_t{1} << 18;
  const std::unique_ptr<std::uint8_t[]> buffer(new std::uint8_t[piece]);
  for (;;) {
    const ssize_t count = read(descriptor, buffer.get(), piece);
    if (count == 0) return 0;
    if (count > 0) {
      SHA256Update(&context, buffer.get(), static_cast<std::size_t>(count));
    } else if (errno != EINTR) {
      return errno;
    }
  }
}

}  // namespace

std::string sha256(std::string_view text) {
  SHA2_CTX context;
  SHA256Init(&context);
  SHA256Update(&context, reinterpret_cast<const std::uint8_t*>(text.data()), text.size());
  return digits(context);
}

std::string sha256_of_file(const std::string& path, const std::string& shown) {
  const int descriptor = open(path.c_str(), O_RDONLY | O_CLOEXEC);
  if (descriptor == -1) cannot_write(shown, errno);
  SHA2_CTX context;
  SHA256Init(&context);
  const int error = read_into(context, descriptor);
  close(descriptor);
  if (error != 0) cannot_write(shown, error);
  return digits(context);
}

}  // namespace Outputs
