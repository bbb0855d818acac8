// Experiment as a C++ host uses it.
#include "facade/experiment.h"

#include <cmath>
#include <numbers>
#include <string>

#include "flume.h"
#include "support/test_run.h"
#include "support/test_site.h"
#include "support/thrown.h"
#include "support/wave_number.h"

using Testing::thrown;

namespace {

class ExperimentTest : public testing::Test {
 protected:
  ExperimentTest() { open_flume(experiment); }

  Kelpbox::Experiment experiment;
  Base::Params params;
};

TEST_F(ExperimentTest, NamesTheSiteAndItsBanks) {
  EXPECT_EQ(experiment.context_name(), "Flume 1 beach 1:10");
  EXPECT_EQ(experiment.context_string().find("Hydraulics Laboratory::Flume 1::beach 1:10#0x"), 0u);
  EXPECT_EQ(experiment.paddle_banks(), 1u);
  EXPECT_EQ(experiment.paddle_bank_size(0), 1u);
  EXPECT_EQ(experiment.paddle_bank_info(0, params), "piston");
  EXPECT_EQ(params.get("max_paddle_motion", "m"), 0.45);
  experiment.paddle_info(0, 0, params);
  EXPECT_EQ(params.get("y", "m"), 0.4);
}

TEST_F(ExperimentTest, RefusesBanksAndPaddlesThatDoNotExist) {
  EXPECT_EQ(thrown([&] { experiment.paddle_bank_info(1, params); }), "Paddle bank out of range");
  EXPECT_EQ(thrown([&] { experiment.paddle_info(0, 1, params); }), "Paddle number out of range");
  EXPECT_THROW(experiment.paddle_bank_size(1), Script::LogItm);
}

TEST_F(ExperimentTest, RefusesASecondInitialise) {
  EXPECT_EQ(thrown([&] { open_flume(experiment); }), "Uncaught Exception in Experiment Initialise");
  EXPECT_EQ(experiment.context_name(), "Flume 1 beach 1:10");
}

TEST_F(ExperimentTest, GivesEachNewItemTheNextId) {
  EXPECT_EQ(experiment.add_definition("run"), 0u);
  EXPECT_EQ(experiment.add_specification(0), 1u);
  EXPECT_EQ(experiment.add_single(1), 2u);
  experiment.remove(2);
  EXPECT_EQ(experiment.add_modifier(1, "GainAdjust", "2"), 3u);
  experiment.clear();
  EXPECT_EQ(experiment.add_definition("run"), 0u);
}

TEST_F(ExperimentTest, RefusesAnItemUnderTheWrongParentAndKeepsTheTable) {
  experiment.add_definition("run");
  experiment.add_specification(0);
  EXPECT_EQ(thrown([&] { experiment.add_single(0); }), "Single::Trying to add to invalid type");
  EXPECT_EQ(thrown([&] { experiment.add_specification(1); }),
            "Adding an Specification to invalid type");
  EXPECT_EQ(thrown([&] { experiment.add_single(2); }), "ID out of range");
  EXPECT_EQ(thrown([&] { experiment.run_build(1); }), "Trying to access Definition");
  EXPECT_EQ(experiment.add_single(1), 2u);
}

TEST_F(ExperimentTest, RemovesEverythingUnderAnItem) {
  experiment.add_definition("run");
  experiment.add_specification(0);
  experiment.add_single(1);
  experiment.remove(0);
  for (const std::uint32_t id : {0u, 1u, 2u}) {
    EXPECT_EQ(thrown([&] { experiment.query(id, params); }), "Trying to query an inactive type");
  }
}

TEST_F(ExperimentTest, DrivesThePistonAsWavemakerTheoryDemands) {
  const double frequency = 0.7;
  const double amplitude = 0.04;
  const double phase = 0.3;
  const double rate = 50.0;
  const std::uint32_t run = experiment.add_definition("run");
  const std::uint32_t place = experiment.add_specification(run);
  const std::uint32_t wave = experiment.add_single(place);
  params = Testing::run_params(10.0);
  experiment.set(run, params);
  params = Testing::at(0.0, 0.0, 0.0);
  experiment.set(place, params);
  params.clear();
  params.insert("f", frequency, "Hz");
  params.insert("a", amplitude, "m");
  params.insert("angle", 0.0, "rad");
  params.insert("phase", phase, "rad");
  experiment.set(wave, params);
  experiment.run_build(run);
  params = Testing::rate_params(rate);
  experiment.paddle_motion_build(run, params);

  const double omega = 2.0 * std::numbers::pi * frequency;
  const double k = Testing::exact_wave_number(omega, flume_depth);
  const double stroke = amplitude / Testing::theory_ratio(k, flume_depth, flume_depth, false);
  const std::vector<double>& signal = experiment.paddle_motion_data(run, 0, 0);
  // The library's explicit wave number is a few parts in 1e5 off.
  const double tolerance = 1e-4 * stroke;
  ASSERT_EQ(signal.size(), 500u);
  for (std::size_t j = 0; j < signal.size(); ++j) {
    const double t = static_cast<double>(j) / rate;
    EXPECT_NEAR(signal[j], stroke * std::sin(omega * t + phase), tolerance);
  }
}

}  // namespace
