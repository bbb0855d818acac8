// A locale with a decimal comma, as a host may have set one.
#ifndef KELPBOX_TESTS_SCRIPT_COMMA_LOCALE_H_
#define KELPBOX_TESTS_SCRIPT_COMMA_LOCALE_H_

#include <clocale>
#include <cstdio>
#include <cstdlib>
#include <string>

#include "testutil.h"

// Holds for the process while it lives. It is compiled here, with a character map of its own: most
// machines have neither a locale with a comma installed nor the sources of one.
class CommaLocale {
 public:
  CommaLocale() {
    std::string map = "<code_set_name> PLAIN\n<mb_cur_max> 1\nCHARMAP\n";
    for (int c = 0; c < 128; ++c) {
      char line[32];
      std::snprintf(line, sizeof line, "<U%04X> /x%02x\n", c, c);
      map += line;
    }
    const std::string numbers =
        "LC_NUMERIC\ndecimal_point \",\"\nthousands_sep \"\"\ngrouping -1\nEND LC_NUMERIC\n";
    const std::string command = "localedef -c -i '" + dir_.write("numbers", numbers) + "' -f '" +
                                dir_.write("map", map + "END CHARMAP\n") + "' '" +
                                dir_.file("comma") + "' >/dev/null 2>&1";
    // It fails for want of the other categories even where it has made the one.
    if (std::system(command.c_str()) == -1) return;
    setenv("LOCPATH", dir_.path().c_str(), 1);
    active_ = std::setlocale(LC_NUMERIC, "comma") != nullptr;
    unsetenv("LOCPATH");
  }
  ~CommaLocale() { std::setlocale(LC_NUMERIC, "C"); }
  CommaLocale(const CommaLocale&) = delete;
  CommaLocale& operator=(const CommaLocale&) = delete;

  // False where the C library cannot make one.
  bool active() const { return active_; }

 private:
  TempDir dir_;
  bool active_ = false;
};

#endif  // KELPBOX_TESTS_SCRIPT_COMMA_LOCALE_H_
