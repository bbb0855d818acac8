// What the command writes, and how it ends.
#ifndef KELPBOX_CLI_CONSOLE_H_
#define KELPBOX_CLI_CONSOLE_H_

#include <ostream>
#include <string>

namespace Cli {

// Exit codes of the command.
namespace Exit {
inline constexpr int good = 0;
inline constexpr int check_failed = 1;  // with --strict
inline constexpr int bad_input = 2;
inline constexpr int cannot_write = 3;
inline constexpr int hung_up = 129;
inline constexpr int interrupted = 130;
inline constexpr int terminated = 143;
}  // namespace Exit

struct Console {
  std::ostream& out;  // results
  std::ostream& err;  // everything else
  bool out_colour = false;
  bool err_colour = false;
  bool progress = false;  // standard error is a terminal
  bool json = false;
  bool quiet = false;
  bool verbose = false;
  unsigned width = 100;  // columns of the terminal; as many as fit a page elsewhere
};

// Whether colours suit what this descriptor leads to: a terminal that knows them, and a user who
// did not refuse them by NO_COLOR (no-color.org).
bool shows_colour(int fd);

// The columns of the terminal that this descriptor leads to, or `otherwise`.
unsigned columns_of(int fd, unsigned otherwise);

// Whether this descriptor leads to a terminal on which a line can be rewritten.
bool is_live(int fd);

}  // namespace Cli

#endif  // KELPBOX_CLI_CONSOLE_H_
