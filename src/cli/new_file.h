// Writes a file that must not replace another one.
#ifndef KELPBOX_CLI_NEW_FILE_H_
#define KELPBOX_CLI_NEW_FILE_H_

#include <string>
#include <string_view>

namespace Cli {

// Writes the whole file or none of it. Replaces an existing file only if asked to. Throws
// Outputs::CannotWrite.
void write_new_file(const std::string& path, std::string_view contents, bool replace);

}  // namespace Cli

#endif  // KELPBOX_CLI_NEW_FILE_H_
