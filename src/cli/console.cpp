#include "cli/console.h"

#include <sys/ioctl.h>
#include <unistd.h>

#include <cstdlib>
#include <cstring>

namespace Cli {

bool is_live(int fd) {
  const char* terminal = std::getenv("TERM");
  return isatty(fd) != 0 && (terminal == nullptr || std::strcmp(terminal, "dumb") != 0);
}

unsigned columns_of(int fd, unsigned otherwise) {
  winsize size{};
  return ioctl(fd, TIOCGWINSZ, &size) == 0 && size.ws_col != 0 ? size.ws_col : otherwise;
}

bool shows_colour(int fd) {
  const char* refused = std::getenv("NO_COLOR");
  return is_live(fd) && (refused == nullptr || *refused == '\0');
}

}  // namespace Cli
