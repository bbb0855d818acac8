#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstddef>
#include <string_view>
#include <system_error>

#include "base/utf8.h"
#include "jobs/diagnostic.h"
#include "jobs/read_toml.h"
#include "jobs/text_places.h"

namespace Jobs {
namespace {

constexpr std::size_t largest_file = 16 << 20;

constexpr std::string_view standard_input = "-";

std::string name_of(const std::string& path) {
  return path == standard_input ? "standard input" : path;
}

[[noreturn]] void refuse(const std::string& path, const std::string& why) {
  throw bad_job(path + ": " + why);
}

[[noreturn]] void refuse_errno(const std::string& path) {
  refuse(path, std::error_code(errno, std::generic_category()).message());
}

class OpenFile {
 public:
  // Without waiting: to open a FIFO would otherwise block until somebody writes to it.
  explicit OpenFile(const std::string& path)
      : path_(path),
        descriptor_(path == standard_input
                        ? ::dup(STDIN_FILENO)
                        : ::open(path.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK)) {
    if (descriptor_ < 0) {
      refuse_errno(path);
    }
  }
  ~OpenFile() { ::close(descriptor_); }
  OpenFile(const OpenFile&) = delete;
  OpenFile& operator=(const OpenFile&) = delete;

  void require_regular() const {
    struct stat status {};
    if (::fstat(descriptor_, &status) != 0) {
      refuse_errno(path_);
    }
    if (S_ISDIR(status.st_mode)) {
      errno = EISDIR;
      refuse_errno(path_);
    }
    if (!S_ISREG(status.st_mode) && path_ != standard_input) {
      refuse(path_, "not a regular file");
    }
    if (status.st_size > static_cast<off_t>(largest_file)) {
      refuse_size();
    }
  }

  // The size may be unknown, or grow while it is read.
  std::string read() const {
    std::string text;
    char block[65536];
    for (;;) {
      const ssize_t count = ::read(descriptor_, block, sizeof block);
      if (count < 0 && errno == EINTR) {
        continue;
      }
      if (count < 0) {
        refuse_errno(path_);
      }
      if (count == 0) {
        return text;
      }
      text.append(block, static_cast<std::size_t>(count));
      if (text.size() > largest_file) {
        refuse_size();
      }
    }
  }

 private:
  [[noreturn]] void refuse_size() const { refuse(path_, "larger than 16 MiB"); }

  const std::string& path_;
  int descriptor_;
};

void require_text(const std::shared_ptr<const SourceText>& source) {
  const std::string_view text = source->text;
  if (text.starts_with("\xFF\xFE") || text.starts_with("\xFE\xFF")) {
    refuse(source->name, "written as UTF-16; save it as UTF-8");
  }
  if (text.find('\0') != std::string_view::npos) {
    refuse(source->name, "not a text file");
  }
  const std::size_t invalid = Base::find_invalid_utf8(text);
  if (invalid != std::string_view::npos) {
    const Span span = TextPlaces(source).span_at(invalid, 1);
    throw bad_job("the text is not UTF-8", span, "save the file as UTF-8");
  }
}

}  // namespace

std::shared_ptr<const SourceText> read_source(const std::string& path) {
  if (path.empty()) throw bad_job("the path of the job is empty");
  const OpenFile file(path);
  file.require_regular();
  auto source = std::make_shared<SourceText>(SourceText{name_of(path), file.read()});
  require_text(source);
  return source;
}

}  // namespace Jobs
