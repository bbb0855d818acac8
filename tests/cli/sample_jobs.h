// Jobs for the tests of the program.
#ifndef KELPBOX_TESTS_CLI_SAMPLE_JOBS_H_
#define KELPBOX_TESTS_CLI_SAMPLE_JOBS_H_

#include <string>

namespace Testing {

inline std::string example(const std::string& name) { return TEST_ROOT "/../examples/" + name; }

// A regular wave in the flume, built in milliseconds.
inline std::string quick_job(const std::string& repeat = "32 s") {
  return "site = \"" + example("flume.site") + "\"\n[run]\nrepeat = \"" + repeat + R"("
[[sea]]
  [[sea.wave]]
  kind = "single"
  f = "0.5 Hz"
  a = "20 mm"
)";
}

// A fan of many directions over a grid: many seconds of work in little memory.
inline std::string slow_job() {
  return "site = \"" + example("basin.site") + R"("
[run]
repeat = "512 s"
[[sea]]
  [[sea.wave]]
  kind = "jonswap"
  hs = "60 mm"
  tp = "1.6 s"
  [[sea.change]]
  kind = "AngleSweep"
  formula = "0 + 1"
  delta_angle = "0.25 deg"
[field]
rate = "5 Hz"
x = { from = "0 m", to = "30 m", step = "0.25 m" }
y = { from = "0 m", to = "20 m", step = "0.25 m" }
)";
}

}  // namespace Testing

#endif  // KELPBOX_TESTS_CLI_SAMPLE_JOBS_H_
