// A locale with a decimal comma, as a host may have set one.
#ifndef KELPBOX_TESTS_SUPPORT_COMMA_LOCALE_H_
#define KELPBOX_TESTS_SUPPORT_COMMA_LOCALE_H_

#include <clocale>
#include <cstdio>
#include <cstdlib>
#include <string>

#include "support/temp_dir.h"

namespace Testing {

// Sets the locale of the whole process until the end of the scope. The locale and its character map
// are compiled here, because most machines have no locale with a comma installed.
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
    // localedef reports an error for the missing categories even if it has written this one.
    if (std::system(command.c_str()) == -1) return;
    setenv("LOCPATH", dir_.path().c_str(), 1);
    active_ = std::setlocale(LC_NUMERIC, "comma") != nullptr;
    unsetenv("LOCPATH");
  }
  ~CommaLocale() { std::setlocale(LC_NUMERIC, "C"); }
  CommaLocale(const CommaLocale&) = delete;
  CommaLocale& operator=(const CommaLocale&) = delete;

  // False if the machine cannot compile a locale.
  bool active() const { return active_; }

 private:
  TempDir dir_;
  bool active_ = false;
};

}  // namespace Testing

#endif  // KELPBOX_TESTS_SUPPORT_COMMA_LOCALE_H_
