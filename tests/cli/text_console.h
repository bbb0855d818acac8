// A console whose streams are texts.
#ifndef KELPBOX_TESTS_CLI_TEXT_CONSOLE_H_
#define KELPBOX_TESTS_CLI_TEXT_CONSOLE_H_

#include <sstream>
#include <string>

#include "cli/console.h"

namespace Testing {

struct TextConsole {
  std::ostringstream out_stream;
  std::ostringstream err_stream;
  Cli::Console console{.out = out_stream, .err = err_stream};

  std::string out() const { return out_stream.str(); }
  std::string err() const { return err_stream.str(); }
};

}  // namespace Testing

#endif  // KELPBOX_TESTS_CLI_TEXT_CONSOLE_H_
