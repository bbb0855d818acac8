#include "cli/fd_stream.h"

#include <unistd.h>

#include <algorithm>
#include <cerrno>

#include "cli/safe_text.h"

namespace Cli {

FdBuffer::FdBuffer(int fd) : fd_(fd) { setp(buffer_.data(), buffer_.data() + buffer_.size()); }

void FdBuffer::make_safe(const bool& as_it_is, const bool& colours) {
  as_it_is_ = &as_it_is;
  colours_ = &colours;
}

// Neither characters nor escape sequences hold a blank or a line end, so that none of them is cut.
FdBuffer::int_type FdBuffer::overflow(int_type next) {
  const std::string_view held(pbase(), static_cast<std::size_t>(pptr() - pbase()));
  const std::size_t blank = held.find_last_of(" \n");
  if (!write_out(blank == held.npos ? held.size() : blank + 1)) return traits_type::eof();
  if (!traits_type::eq_int_type(next, traits_type::eof())) {
    *pptr() = traits_type::to_char_type(next);
    pbump(1);
  }
  return traits_type::not_eof(next);
}

int FdBuffer::sync() { return write_out(static_cast<std::size_t>(pptr() - pbase())) ? 0 : -1; }

bool FdBuffer::write_out(std::size_t length) {
  const std::string_view text(pbase(), length);
  if (as_it_is_ == nullptr || *as_it_is_) {
    write_all(text);
  } else {
    write_all(safe_text(text, *colours_));
  }
  char* const end = std::copy(pbase() + length, pptr(), buffer_.data());
  setp(buffer_.data(), buffer_.data() + buffer_.size());
  pbump(static_cast<int>(end - buffer_.data()));
  return failure_ == 0;
}

void FdBuffer::write_all(std::string_view text) {
  while (failure_ == 0 && !text.empty()) {
    const ssize_t written = ::write(fd_, text.data(), text.size());
    if (written >= 0) {
      text.remove_prefix(static_cast<std::size_t>(written));
    } else if (errno != EINTR) {
      failure_ = errno;
    }
  }
}

int FdStream::close() {
  flush();
  return buffer_.failure();
}

}  // namespace Cli
