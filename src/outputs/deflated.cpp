#include "outputs/deflated.h"

#include <openssl/evp.h>
#include <zlib.h>

#include <new>

namespace Outputs {
namespace {

// Higher levels take several times as long for 1 % less of waves.
constexpr int level = 6;

const unsigned char* raw(std::string_view bytes) {
  return reinterpret_cast<const unsigned char*>(bytes.data());
}

unsigned char* raw(std::string& bytes) { return reinterpret_cast<unsigned char*>(bytes.data()); }

}  // namespace

std::string deflated(std::string_view bytes) {
  uLongf size = compressBound(bytes.size());
  std::string stream(size, '\0');
  // It fails for want of memory only.
  if (compress2(raw(stream), &size, raw(bytes), bytes.size(), level) != Z_OK) {
    throw std::bad_alloc();
  }
  stream.resize(size);
  return stream;
}

std::string base64(std::string_view bytes) {
  std::string text;
  text.reserve((bytes.size() + 2) / 3 * 4);
  // The library counts in int, and ends each piece with a zero byte. Only the last piece is padded.
  constexpr std::size_t largest_piece = 3 << 20;
  std::string piece;
  while (!bytes.empty()) {
    const std::string_view part = bytes.substr(0, largest_piece);
    piece.resize((part.size() + 2) / 3 * 4 + 1);
    const int length = EVP_EncodeBlock(raw(piece), raw(part), static_cast<int>(part.size()));
    text.append(piece, 0, static_cast<std::size_t>(length));
    bytes.remove_prefix(part.size());
  }
  return text;
}

}  // namespace Outputs
