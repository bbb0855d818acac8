#include "outputs/output_file.h"

#include <fcntl.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>

#include "outputs/cannot_write.h"

namespace Outputs {

OutputFile::OutputFile(const std::string& path, const std::string& shown)
    : shown_(shown),
      buffer_(new char[capacity]),
      descriptor_(open(path.c_str(), O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC, 0666)) {
  if (descriptor_ == -1) cannot_write(shown_, errno);
}

OutputFile::~OutputFile() {
  if (descriptor_ != -1) ::close(descriptor_);
}

void OutputFile::write(std::string_view text) {
  if (text.size() > capacity - used_) flush();
  if (text.size() > capacity) {
    pass_on(text.data(), text.size());
    return;
  }
  std::copy(text.begin(), text.end(), buffer_.get() + used_);
  used_ += text.size();
}

void OutputFile::flush() {
  pass_on(buffer_.get(), used_);
  used_ = 0;
}

void OutputFile::pass_on(const char* data, std::size_t size) {
  while (size > 0) {
    const ssize_t written = ::write(descriptor_, data, size);
    if (written < 0 && errno == EINTR) continue;
    if (written <= 0) cannot_write(shown_, written < 0 ? errno : ENOSPC);
    data += written;
    size -= static_cast<std::size_t>(written);
  }
}

void OutputFile::close() {
  flush();
  const int descriptor = descriptor_;
  descriptor_ = -1;
  // Network file systems report a full disk here. The descriptor is closed even if interrupted.
  if (::close(descriptor) != 0 && errno != EINTR) cannot_write(shown_, errno);
}

void flush_to_disk(const std::string& path, const std::string& shown) {
  const int descriptor = open(path.c_str(), O_RDONLY | O_CLOEXEC);
  if (descriptor == -1) cannot_write(shown, errno);
  const int error = fsync(descriptor) == 0 ? 0 : errno;
  close(descriptor);
  // Some file systems cannot flush folders.
  if (error != 0 && error != EINVAL && error != ENOTSUP) cannot_write(shown, error);
}

}  // namespace Outputs
