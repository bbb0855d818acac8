#include "cli/new_file.h"

#include <cerrno>
#include <cstdio>
#include <cstring>

#include "outputs/output_folder.h"

namespace Cli {
namespace {

[[noreturn]] void fail(const std::string& path, int error) {
  throw Outputs::CannotWrite{path + ": " + std::strerror(error)};
}

// Returns 0 or the error. A file that was not there and could not be filled is removed.
int write_file(const std::string& path, std::string_view contents, const char* mode) {
  std::FILE* const file = std::fopen(path.c_str(), mode);
  if (file == nullptr) return errno;
  errno = 0;
  const bool written = std::fwrite(contents.data(), 1, contents.size(), file) == contents.size();
  int error = written ? 0 : errno;
  if (std::fclose(file) != 0 && error == 0) error = errno;
  if (error != 0) std::remove(path.c_str());
  return error;
}

}  // namespace

void write_new_file(const std::string& path, std::string_view contents, bool replace) {
  if (!replace) {
    const int error = write_file(path, contents, "wx");
    if (error == EEXIST) {
      throw Outputs::CannotWrite{path + ": it is there already; --force replaces it"};
    }
    if (error != 0) fail(path, error);
    return;
  }
  const std::string beside = path + ".part";
  if (const int error = write_file(beside, contents, "w"); error != 0) fail(path, error);
  if (std::rename(beside.c_str(), path.c_str()) != 0) {
    const int error = errno;
    std::remove(beside.c_str());
    fail(path, error);
  }
}

}  // namespace Cli
