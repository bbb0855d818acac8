// A site script with every key, parts of which tests replace, and the reading of scripts. Tests of
// runs write their sites with support/test_site.h.
#ifndef KELPBOX_TESTS_SITE_SITE_SCRIPT_H_
#define KELPBOX_TESTS_SITE_SITE_SCRIPT_H_

#include <gtest/gtest.h>

#include <sstream>
#include <stdexcept>
#include <string>

#include "site/context.h"
#include "support/output.h"
#include "support/temp_dir.h"
#include "support/thrown.h"

// A site with every key: a tank of constant depth, one tunable value, and one flap bank of two
// paddles with one constant. No assignment occurs twice.
inline const char* full_script() {
  return R"(context {
  site_name = "Bay";
  tank_name = "Basin";
  config_name = "Spring";
  tank {
    geometry = BothSides;
    units = m;
    max_y = 4.5;
    min_y = -1.5;
    section[2..1];
    section[1] { x = 0; offset = Relative; depth = "0.8"; }
    section[2] { x = 20; offset = Absolute; }
    reference_x = 1.0;
    delta_depth = 0.02;
    delta_x = 0.6;
    param[1..1] {
      name = "gain";
      value = 1.25;
      max = 2.5;
      min = 0.5;
      error = 0.125;
      units = "cm";
    }
  }
  limits {
    frequency { units = "Hz"; maximum = 2.25; minimum = 0.25; }
    angle { units = "deg"; maximum = 60; minimum = -45; }
  }
  wavemaker_bank[1..1] {
    name = "north";
    pad_pos[2..1] { x = 0.01; y = 0.35; angle = 0.03; }
    flap {
      paddle_width = 0.55;
      critical_dimension = 0.65;
      dimension_type = ToSurface;
      paddle_motion {
        clip_limit = 11;
        maximum = 12;
        minimum = -13;
        units = "mrad";
      }
      constant[1..1] { name = "ratio"; units = "mm"; value = 7.5; }
    }
  }
  rate_units = Hz;
  base_rate = 40;
  base_g = 9.81;
  base_rho = 1000;
}
)";
}

// The script with `from`, which must occur exactly once, replaced.
inline std::string changed(std::string script, const std::string& from, const std::string& to) {
  const std::size_t place = script.find(from);
  if (place == std::string::npos || script.find(from, place + 1) != std::string::npos) {
    ADD_FAILURE() << "not in the script exactly once: " << from;
    return script;
  }
  return script.replace(place, from.size(), to);
}

inline std::string site_with(const std::string& from, const std::string& to) {
  return changed(full_script(), from, to);
}

// The full script with other sections: `sections` starts with the declaration of the array.
inline std::string site_with_sections(const std::string& sections) {
  return site_with(R"(section[2..1];
    section[1] { x = 0; offset = Relative; depth = "0.8"; }
    section[2] { x = 20; offset = Absolute; })",
                   sections);
}

// The result of reading a script, whether or not it succeeded.
class Load {
 public:
  explicit Load(const std::string& script) {
    const Testing::TempDir dir;
    path = dir.write("test.site", script);
    read();
  }
  struct File {
    std::string path;
  };
  explicit Load(const File& file) : path(file.path) { read(); }

  Common::Context& context() {
    if (!reader.object()) throw std::runtime_error("no context: " + failure);
    return *reader.object();
  }
  bool ok() const { return failure == Testing::nothing_thrown; }
  // The only line of the log after a failed check. Also tests everything else that a host sees of
  // it.
  std::string caught_item() const {
    EXPECT_EQ(failure, "Caught log exception");
    const std::string line = log_text.str();
    EXPECT_EQ(output, "Opened file  \"" + path + "\" for input\nLeaving file \"" + path +
                          "\"\nException:-" + line);
    return line;
  }

  std::string path;
  std::string failure;        // nothing_thrown after a success
  std::string output;         // on standard output
  std::ostringstream report;  // of the verification
  std::ostringstream log_text;
  Script::SimpleLog log{log_text};
  Common::SiteReader reader{"context"};

 private:
  void read() {
    reader.attach_log(log);
    output = Testing::printed(
        [&] { failure = Testing::thrown([&] { reader.read(report, path, ""); }); });
  }
};

#endif  // KELPBOX_TESTS_SITE_SITE_SCRIPT_H_
