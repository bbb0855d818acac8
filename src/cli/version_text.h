// What --version shows.
#ifndef KELPBOX_CLI_VERSION_TEXT_H_
#define KELPBOX_CLI_VERSION_TEXT_H_

#include <string>

namespace Cli {

// "kelpbox 0.1.0", and with `verbose` the compiler and the libraries that it was built with.
std::string version_text(bool verbose);

}  // namespace Cli

#endif  // KELPBOX_CLI_VERSION_TEXT_H_
