// An output stream on a file descriptor that remembers why a write failed.
#ifndef KELPBOX_CLI_FD_STREAM_H_
#define KELPBOX_CLI_FD_STREAM_H_

#include <array>
#include <cstddef>
#include <ostream>
#include <streambuf>
#include <string_view>

namespace Cli {

class FdBuffer : public std::streambuf {
 public:
  explicit FdBuffer(int fd);

  // errno of the first write that failed; 0 if none did. Nothing is written after a failure.
  int failure() const { return failure_; }

  // From now on, what would control a terminal is replaced unless `as_it_is` (safe_text.h). Both
  // are read at each write.
  void make_safe(const bool& as_it_is, const bool& colours);

 protected:
  int_type overflow(int_type next) override;
  int sync() override;

 private:
  // Writes the first part of the buffer. Returns false after a failure.
  bool write_out(std::size_t length);
  void write_all(std::string_view text);

  int fd_;
  int failure_ = 0;
  const bool* as_it_is_ = nullptr;  // null: never made safe
  const bool* colours_ = nullptr;
  std::array<char, 8192> buffer_;
};

class FdStream : public std::ostream {
 public:
  explicit FdStream(int fd) : std::ostream(nullptr), buffer_(fd) { rdbuf(&buffer_); }

  void make_safe(const bool& as_it_is, const bool& colours) {
    buffer_.make_safe(as_it_is, colours);
  }

  // Writes what is still held, and returns errno of the first write that failed, or 0.
  int close();

 private:
  FdBuffer buffer_;
};

}  // namespace Cli

#endif  // KELPBOX_CLI_FD_STREAM_H_
