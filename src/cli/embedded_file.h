// Files that are part of the program: the pages of docs/ and the templates of `kelpbox new`.
// cmake/KelpboxEmbed.cmake puts them there.
#ifndef KELPBOX_CLI_EMBEDDED_FILE_H_
#define KELPBOX_CLI_EMBEDDED_FILE_H_

#include <span>
#include <string_view>

namespace Cli {

struct EmbeddedFile {
  std::string_view name;  // without its folder
  std::string_view text;
};

std::span<const EmbeddedFile> embedded_pages();      // docs/*.md
std::span<const EmbeddedFile> embedded_templates();  // src/cli/new/

}  // namespace Cli

#endif  // KELPBOX_CLI_EMBEDDED_FILE_H_
