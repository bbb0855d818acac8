// A test on an analysis of the basin of data/basin.txt.
#ifndef KELPBOX_TESTS_EXPORTED_ANALYSIS_FIXTURE_H_
#define KELPBOX_TESTS_EXPORTED_ANALYSIS_FIXTURE_H_

#include <cmath>
#include <numbers>
#include <string>
#include <vector>

#include "fixture.h"
#include "support/output.h"

namespace Testing {

class AnalysisTest : public HostTest {
 protected:
  static constexpr double pi = std::numbers::pi;

  void SetUp() override { self = analysis(); }

  // Without a site, and with the basin.
  jlong empty_analysis() {
    return own(host.call(NATIVE(new_1Kelpbox_1Analysis)), NATIVE(delete_1Kelpbox_1Analysis));
  }
  jlong analysis() {
    const jlong made = empty_analysis();
    printed([&] {
      host.call(NATIVE(Kelpbox_1Analysis_1initialise), made, proxy,
                TEST_ROOT "/exported/data/basin.txt");
    });
    return made;
  }

  // A sine of 2 s that starts in a trough, sampled at 50 Hz for 40 s: 20 crossings, 19 waves.
  static std::vector<double> sine(double amplitude) {
    std::vector<double> samples(2000);
    for (std::size_t j = 0; j < samples.size(); ++j) {
      samples[j] = -amplitude * std::cos(pi * static_cast<double>(j) / 50.0);
    }
    return samples;
  }
  jlong add(const std::vector<double>& samples) {
    return host.call(NATIVE(Kelpbox_1Analysis_1add_1series), self, proxy,
                     params({{"rate", 50, "Hz"}}), proxy, doubles(samples), proxy);
  }

  jlong window(double start, double stop) {
    return params({{"start_time", start, "s"}, {"stop_time", stop, "s"}});
  }
  jlong group(const std::vector<jlong>& series, jlong times) {
    jlong id = 0;
    output = printed([&] {
      id = host.call(NATIVE(Kelpbox_1Analysis_1create_1set), self, proxy, times, proxy,
                     uints(series), proxy);
    });
    return id;
  }
  jlong group(const std::vector<jlong>& series) { return group(series, window(0, 40)); }

  // Sets the site's tunable values, which a host must do before each process.
  void tune() {
    const jlong values = params();
    host.call(NATIVE(Kelpbox_1Analysis_1query), self, proxy, values, proxy);
    host.call(NATIVE(Kelpbox_1Analysis_1set), self, proxy, values, proxy);
  }
  // Without and with `tune` before it.
  jlong create(jlong set, jlong kind) {
    jlong id = 0;
    output = printed([&] {
      id = host.call(NATIVE(Kelpbox_1Analysis_1create_1process), self, proxy, set, kind);
    });
    return id;
  }
  jlong process(jlong set, jlong kind) {
    tune();
    return create(set, kind);
  }

  jlong results(jlong id, jlong settings, jlong out) {
    output = printed([&] {
      host.call(NATIVE(Kelpbox_1Analysis_1get_1results), self, proxy, id, settings, proxy, out,
                proxy);
    });
    return out;
  }
  jlong results(jlong id) { return results(id, params(), params()); }
  jlong data(jlong id) {
    return host.call(NATIVE(Kelpbox_1Analysis_1get_1data), self, proxy, id, params(), proxy);
  }

  // The failure of the last of these calls. Hides Testing::thrown(): failures are exceptions of the
  // host here.
  Thrown thrown() { return host.take_thrown(); }

  static Thrown uncaught(const std::string& operation) {
    return domain("Uncaught Exception in Experiment " + operation);
  }

  jlong self = 0;
  std::string output;  // of the last call
};

}  // namespace Testing

#endif  // KELPBOX_TESTS_EXPORTED_ANALYSIS_FIXTURE_H_
