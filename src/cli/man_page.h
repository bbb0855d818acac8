// The man page kelpbox(1).
#ifndef KELPBOX_CLI_MAN_PAGE_H_
#define KELPBOX_CLI_MAN_PAGE_H_

#include <string>

namespace Cli {

// In the man macros of troff. It has no date, so the same sources make the same page.
std::string man_page();

}  // namespace Cli

#endif  // KELPBOX_CLI_MAN_PAGE_H_
