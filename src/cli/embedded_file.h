// The files that are part of the command: the pages of docs/ and the templates of `kelpbox new`.
#ifndef KELPBOX_CLI_EMBEDDED_FILE_H_
#define KELPBOX_CLI_EMBEDDED_FILE_H_

#include "base/embedded_file.h"

namespace Cli {

using Base::EmbeddedFile;

std::span<const EmbeddedFile> embedded_pages();      // docs/*.md
std::span<const EmbeddedFile> embedded_templates();  // src/cli/new/

}  // namespace Cli

#endif  // KELPBOX_CLI_EMBEDDED_FILE_H_
