// A file that is written from front to back.
#ifndef KELPBOX_OUTPUTS_OUTPUT_FILE_H_
#define KELPBOX_OUTPUTS_OUTPUT_FILE_H_

#include <cstddef>
#include <memory>
#include <string>
#include <string_view>

namespace Outputs {

// Collects what is written and passes it on in large pieces. Every call may throw CannotWrite with
// the name for messages and the system's reason.
class OutputFile {
 public:
  // Makes the file, or empties an existing one.
  OutputFile(const std::string& path, const std::string& shown);
  // Closes the file without what was not passed on yet: a finished file has been closed before.
  ~OutputFile();
  OutputFile(const OutputFile&) = delete;
  OutputFile& operator=(const OutputFile&) = delete;

  void write(std::string_view text);
  // Room for up to `most` characters, at most largest_piece. `wrote` ends what was put there.
  char* room(std::size_t most) {
    if (capacity - used_ < most) flush();
    return buffer_.get() + used_;
  }
  void wrote(const char* end) { used_ = static_cast<std::size_t>(end - buffer_.get()); }
  // Writes the rest and checks that the file is complete.
  void close();

  static constexpr std::size_t largest_piece = 4096;

 private:
  static constexpr std::size_t capacity = std::size_t{1} << 18;

  void flush();
  void pass_on(const char* data, std::size_t size);

  std::string shown_;
  std::unique_ptr<char[]> buffer_;
  std::size_t used_ = 0;
  int descriptor_;
};

// Has the system write a closed file, or a folder, to the disk. Throws CannotWrite.
void flush_to_disk(const std::string& path, const std::string& shown);

}  // namespace Outputs

#endif  // KELPBOX_OUTPUTS_OUTPUT_FILE_H_
