// Site scripts for tests: a small one whose parts a test replaces, and its loading.
#ifndef KELPBOX_TESTS_SITE_SITE_SCRIPT_H_
#define KELPBOX_TESTS_SITE_SITE_SCRIPT_H_

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <sstream>
#include <string>

#include "site/context.h"

// A site with every key: a tank of constant depth, one tunable value, one flap bank of two paddles
// with one constant. Each assignment's text occurs once.
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

// The text with its only `from` replaced.
inline std::string changed(std::string text, const std::string& from, const std::string& to) {
  const std::size_t place = text.find(from);
  if (place == std::string::npos || text.find(from, place + 1) != std::string::npos) {
    ADD_FAILURE() << "not in the script exactly once: " << from;
    return text;
  }
  return text.replace(place, from.size(), to);
}

inline std::string site_with(const std::string& from, const std::string& to) {
  return changed(full_script(), from, to);
}

// The full script with other sections; `sections` holds everything from the array's declaration.
inline std::string site_with_sections(const std::string& sections) {
  return site_with(R"(section[2..1];
    section[1] { x = 0; offset = Relative; depth = "0.8"; }
    section[2] { x = 20; offset = Absolute; })",
                   sections);
}

// One read of a script, whatever came of it.
class Load {
 public:
  // Writes the text to a file of its own.
  explicit Load(const std::string& text) {
    const auto* test = testing::UnitTest::GetInstance()->current_test_info();
    const std::filesystem::path directory =
        std::filesystem::path(testing::TempDir()) /
        (std::string("site_") + test->test_suite_name() + "_" + test->name());
    std::filesystem::create_directories(directory);
    path = (directory / "test.site").string();
    std::ofstream(path) << text;
    read();
    std::filesystem::remove_all(directory);
  }
  struct File {
    std::string path;
  };
  explicit Load(const File& file) : path(file.path) { read(); }

  Common::Context& context() {
    if (!reader.object()) throw std::runtime_error("no context: " + failure + plain_failure);
    return *reader.object();
  }
  bool ok() const { return failure.empty() && plain_failure.empty(); }
  // The log's only line, where a check failed; checks all that the outside sees of it.
  std::string caught_item() const {
    EXPECT_EQ(failure, "Caught log exception") << plain_failure;
    const std::string line = log_text.str();
    EXPECT_EQ(output, "Opened file  \"" + path + "\" for input\nLeaving file \"" + path +
                          "\"\nException:-" + line);
    return line;
  }

  std::string path;
  std::string failure;        // a std::string
  std::string plain_failure;  // a plain text
  std::string output;         // on the standard output stream
  std::ostringstream report;  // of the verification
  std::ostringstream log_text;
  Script::SimpleLog log{log_text};
  Common::SiteReader reader{"context"};

 private:
  void read() {
    testing::internal::CaptureStdout();
    try {
      reader.attach_log(log);
      reader.read(report, path, "");
    } catch (const std::string& text) {
      failure = text;
    } catch (const char* text) {
      plain_failure = text;
    }
    output = testing::internal::GetCapturedStdout();
  }
};

// What a call throws, as "string: ...", "plain: ..." or "item: <name>: <as it prints>".
template <typename Call>
std::string thrown_by(Call call) {
  try {
    call();
  } catch (const std::string& text) {
    return "string: " + text;
  } catch (const char* text) {
    return std::string("plain: ") + text;
  } catch (const Script::LogItm& item) {
    std::ostringstream out;
    out << "item: " << item.name << ": " << item;
    return out.str();
  }
  return "nothing";
}

#endif  // KELPBOX_TESTS_SITE_SITE_SCRIPT_H_
