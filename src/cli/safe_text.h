// Text that cannot control the terminal that shows it.
#ifndef KELPBOX_CLI_SAFE_TEXT_H_
#define KELPBOX_CLI_SAFE_TEXT_H_

#include <string>
#include <string_view>

namespace Cli {

// Names in sites, jobs and records can hold escape sequences. Control characters become blanks, and
// bytes that are not UTF-8 question marks. Line ends and tabs stay. So does what the program itself
// writes: its colours, where they are shown, and what erases the progress bar, at the beginning.
std::string safe_text(std::string_view text, bool colours);

}  // namespace Cli

#endif  // KELPBOX_CLI_SAFE_TEXT_H_
