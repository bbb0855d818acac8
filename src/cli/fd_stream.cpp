#include "cli/fd_stream.h"

#include <unistd.h>

#include <cerrno>

namespace Cli {

FdBuffer::FdBuffer(int fd) : fd_(fd) { setp(buffer_.data(), buffer_.data() + buffer_.size()); }

FdBuffer::int_type FdBuffer::overflow(int_type next) {
  if (!write_out()) return traits_type::eof();
  if (!traits_type::eq_int_type(next, traits_type::eof())) {
    *pptr() = traits_type::to_char_type(next);
    pbump(1);
  }
  return traits_type::not_eof(next);
}

int FdBuffer::sync() { return write_out() ? 0 : -1; }

bool FdBuffer::write_out() {
  const char* from = pbase();
  while (failure_ == 0 && from != pptr()) {
    const ssize_t written = ::write(fd_, from, static_cast<std::size_t>(pptr() - from));
    if (written >= 0) {
      from += written;
    } else if (errno != EINTR) {
      failure_ = errno;
    }
  }
  setp(buffer_.data(), buffer_.data() + buffer_.size());
  return failure_ == 0;
}

int FdStream::close() {
  flush();
  return buffer_.failure();
}

}  // namespace Cli
