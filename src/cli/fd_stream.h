// An output stream on a file descriptor that remembers why a write failed.
#ifndef KELPBOX_CLI_FD_STREAM_H_
#define KELPBOX_CLI_FD_STREAM_H_

#include <array>
#include <ostream>
#include <streambuf>

namespace Cli {

class FdBuffer : public std::streambuf {
 public:
  explicit FdBuffer(int fd);

  // errno of the first write that failed; 0 if none did. Nothing is written after a failure.
  int failure() const { return failure_; }

 protected:
  int_type overflow(int_type next) override;
  int sync() override;

 private:
  bool write_out();

  int fd_;
  int failure_ = 0;
  std::array<char, 8192> buffer_;
};

class FdStream : public std::ostream {
 public:
  explicit FdStream(int fd) : std::ostream(nullptr), buffer_(fd) { rdbuf(&buffer_); }

  // Writes what is still held, and returns errno of the first write that failed, or 0.
  int close();

 private:
  FdBuffer buffer_;
};

}  // namespace Cli

#endif  // KELPBOX_CLI_FD_STREAM_H_
