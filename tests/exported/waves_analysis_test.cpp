// tidelab.waves.Native: analyses.
#include <cmath>
#include <numbers>

#include "support/output.h"
#include "waves_fixture.h"

namespace {

using Testing::printed;
using Testing::WavesTest;

class WavesAnalysis : public WavesTest {
 protected:
  void SetUp() override { experiment = basin(); }

  jlong add(const std::vector<double>& samples) {
    return waves.call(WAVES(addSeries), experiment, params({{"rate", 50, "Hz"}}),
                      waves.doubles(samples));
  }
  Thrown thrown_by_set(const std::vector<jint>& series) {
    const jlong window = params({{"start_time", 0, "s"}, {"stop_time", 40, "s"}});
    Thrown thrown;
    printed([&] {
      made = waves.call(WAVES(createSet), experiment, window, waves.ints(series));
      thrown = waves.take_thrown();
    });
    return thrown;
  }

  Thrown thrown_by_evaluate(jlong set, jint kind) {
    Thrown thrown;
    printed(
        [&] { thrown = thrown_in(WAVES(evaluate), experiment, set, kind, params(), params()); });
    return thrown;
  }

  jlong made = 0;  // the last set
};

// A sine of 2 s that starts in a trough, sampled at 50 Hz for 40 s: waves of height 0.1 m.
TEST_F(WavesAnalysis, ASeriesIsAnalysed) {
  std::vector<double> samples(2000);
  for (std::size_t j = 0; j < samples.size(); ++j) {
    samples[j] = -0.05 * std::cos(std::numbers::pi * static_cast<double>(j) / 50.0);
  }
  EXPECT_EQ(add(samples), 0);
  ASSERT_EQ(thrown_by_set({0}), Thrown{});
  EXPECT_EQ(made, 1);
  const jlong results = params();
  std::vector<double> heights;
  printed([&] {
    heights = numbers(waves.call(WAVES(evaluate), experiment, made, 0, params(), results));
  });
  ASSERT_EQ(heights.size(), 1U);  // one for each series, as for any regular record
  EXPECT_NEAR(heights[0], 0.1, 1e-12);
  EXPECT_NEAR(value(results, "reg_t", "s"), 2.0, 1e-12);
}

TEST_F(WavesAnalysis, RefusalsHaveTheMessagesOfTheLibrary) {
  EXPECT_EQ(add({}), 0);
  const Thrown subscript =
      domain("Uncaught Exception in Experiment create_set: invalid vector<T> subscript");
  EXPECT_EQ(thrown_by_set({7}), subscript);
  EXPECT_EQ(thrown_by_set({-1}), subscript);
  EXPECT_EQ(thrown_by_evaluate(0, 0), domain("Uncaught Exception in Experiment create_process"));
  EXPECT_EQ(thrown_by_evaluate(-1, 0), domain("ID -1 is out of range"));
  EXPECT_EQ(thrown_by_evaluate(0, -1), domain("kind -1 is out of range"));
}

}  // namespace
