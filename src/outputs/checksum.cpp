#include "outputs/checksum.h"

#include <fcntl.h>
#include <openssl/evp.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <memory>
#include <new>

#include "outputs/cannot_write.h"

namespace Outputs {
namespace {

class Digest {
 public:
  Digest() : context_(EVP_MD_CTX_new(), &EVP_MD_CTX_free) {
    require(context_ ? EVP_DigestInit_ex(context_.get(), EVP_sha256(), nullptr) : 0);
  }

  void add(const void* data, std::size_t size) {
    require(EVP_DigestUpdate(context_.get(), data, size));
  }

  std::string digits() {
    constexpr std::string_view digit = "0123456789abcdef";
    std::array<unsigned char, EVP_MAX_MD_SIZE> bytes{};
    unsigned size = 0;
    require(EVP_DigestFinal_ex(context_.get(), bytes.data(), &size));
    std::string text;
    for (unsigned i = 0; i < size; ++i) {
      text += digit[bytes[i] / 16];
      text += digit[bytes[i] % 16];
    }
    return text;
  }

 private:
  // Only memory can run out.
  static void require(int good) {
    if (good != 1) throw std::bad_alloc();
  }

  std::unique_ptr<EVP_MD_CTX, decltype(&EVP_MD_CTX_free)> context_;
};

// Feeds the file to the digest. Returns errno.
int read_into(Digest& digest, int descriptor) {
  constexpr std::size_t piece = std::size_t{1} << 18;
  const std::unique_ptr<char[]> buffer(new char[piece]);
  for (;;) {
    const ssize_t count = read(descriptor, buffer.get(), piece);
    if (count == 0) return 0;
    if (count > 0) {
      digest.add(buffer.get(), static_cast<std::size_t>(count));
    } else if (errno != EINTR) {
      return errno;
    }
  }
}

}  // namespace

std::string sha256(std::string_view text) {
  Digest digest;
  digest.add(text.data(), text.size());
  return digest.digits();
}

std::string sha256_of_file(const std::string& path, const std::string& shown) {
  const int descriptor = open(path.c_str(), O_RDONLY | O_CLOEXEC);
  if (descriptor == -1) cannot_write(shown, errno);
  Digest digest;
  const int error = read_into(digest, descriptor);
  close(descriptor);
  if (error != 0) cannot_write(shown, error);
  return digest.digits();
}

}  // namespace Outputs
