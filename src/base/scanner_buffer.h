// Buffers for the scanners that flex generates.
#ifndef KELPBOX_BASE_SCANNER_BUFFER_H_
#define KELPBOX_BASE_SCANNER_BUFFER_H_

#include <cstddef>
#include <cstdlib>

namespace Base {

// A buffer for that many characters, or null. The scanner frees it. The generated function loses
// its first block when there is no memory for the characters.
template <typename Buffer>
Buffer* scanner_buffer(int characters) {
  constexpr std::size_t end_marks = 2;
  auto* const buffer = static_cast<Buffer*>(std::calloc(1, sizeof(Buffer)));
  if (buffer == nullptr) return nullptr;
  const std::size_t size = static_cast<std::size_t>(characters) + end_marks;
  buffer->yy_buf_size = characters;
  buffer->yy_ch_buf = static_cast<char*>(std::malloc(size));
  buffer->yy_is_our_buffer = 1;
  if (buffer->yy_ch_buf != nullptr) return buffer;
  std::free(buffer);
  return nullptr;
}

}  // namespace Base

#endif  // KELPBOX_BASE_SCANNER_BUFFER_H_
