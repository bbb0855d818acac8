#include "outputs/regular_file.h"

#include <cerrno>
#include <filesystem>
#include <system_error>

#include "outputs/cannot_read.h"

namespace Outputs {

void require_regular_file(const std::string& path, const std::string& shown) {
  namespace fs = std::filesystem;
  std::error_code error;
  const fs::file_type type = fs::status(path, error).type();
  if (type == fs::file_type::regular) return;
  if (type == fs::file_type::directory) cannot_read(shown, EISDIR);
  if (error) cannot_read(shown, error.value());
  throw CannotRead{shown + ": not a regular file"};
}

}  // namespace Outputs
