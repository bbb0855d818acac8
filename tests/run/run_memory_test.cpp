// Runs that need more memory than the machine has, and the memory that they use.
#include <gtest/gtest.h>

#include <cstddef>
#include <string>
#include <vector>

#include "support/own_process.h"
#include "support/test_run.h"
#include "support/thrown.h"

namespace {

using Testing::BankText;
using Testing::BuiltRun;
using Testing::peak_memory;
using Testing::rate_params;
using Testing::SiteText;
using Testing::thrown;

SiteText with_paddles(std::vector<int> banks) {
  SiteText text;
  text.banks.clear();
  for (const int count : banks) {
    BankText bank;
    bank.paddles.clear();
    for (int p = 0; p < count; ++p) bank.paddles.push_back({0.0, 0.001 * p, 0.0});
    text.banks.push_back(bank);
  }
  return text;
}

TEST(RunMemory, ARateMistypedByAMillionIsRefusedBeforeItsMemoryIsUsed) {
  BuiltRun run(with_paddles({4000}), {{5, {0.1, 0.0, 0.0}}});
  const double before = peak_memory();
  const std::string text = thrown([&] { run.definition.paddle_motion_build(rate_params(1e7)); });
  // One signal of 0.75 GiB would be accepted, but all of them are too much for any machine.
  const std::string start =
      "rate::1e+07 Hz gives 100000000 samples for each of 4000 paddles, which need 2982.";
  EXPECT_EQ(text.rfind(start, 0), 0U) << text;
  EXPECT_NE(text.find(" GiB of memory, "), std::string::npos);
  EXPECT_NE(text.find(" GiB are available"), std::string::npos);
  EXPECT_LT(peak_memory() - before, 5e7);

  run.definition.paddle_motion_build(rate_params(10.0));
  EXPECT_EQ(run.signal(0, 3999).size(), 100U);
}

TEST(RunMemory, BanksBeforeARefusedOneAreComplete) {
  BuiltRun run(with_paddles({1, 1000}), {{5, {0.1, 0.0, 0.0}}});
  if (Testing::sanitized) GTEST_SKIP() << "a sanitizer needs more addresses than a limit leaves";
  EXPECT_TRUE(Testing::good_alone([&] {
    Testing::leave_room(1e9);
    const std::string text = thrown([&] { run.definition.paddle_motion_build(rate_params(1e5)); });
    return text.rfind("rate::100000 Hz gives 1000000 samples for each of 1000 paddles", 0) == 0 &&
           run.signal(0, 0).size() == 1000000 &&
           thrown([&] { run.signal(1, 0); }) ==
               "Paddle out of range in paddle_motion_data::bank 1 has no signal of paddle 0";
  }));
}

TEST(RunMemory, SignalsOfAnEarlierBuildMakeRoom) {
  BuiltRun run(with_paddles({40}), {{5, {0.1, 0.0, 0.0}}});
  if (Testing::sanitized) GTEST_SKIP() << "a sanitizer needs more addresses than a limit leaves";
  EXPECT_TRUE(Testing::good_alone([&] {
    // 32 MB of signals each time.
    Testing::leave_room(5e7);
    run.definition.paddle_motion_build(rate_params(1e4));
    run.definition.paddle_motion_build(rate_params(1e4));
    return run.signal(0, 39).size() == 100000;
  }));
}

TEST(RunMemory, APeakIsTheSignalsAndTheTransformOfOne) {
  if (Testing::sanitized) GTEST_SKIP() << "the sanitizer's own memory is counted too";
  EXPECT_TRUE(Testing::good_alone([] {
    Testing::Site site(with_paddles({16}));
    Maths::RunData run;
    run.init(10000.0, 20.0, 0.1, 2.0, false);
    Maths::FrontSet fronts;
    fronts.reset(run.size());
    for (std::size_t h = 1000; h < run.size(); ++h) fronts.slots[h] = {{1e-5, 0.2, 0.1}};
    Synthesis::BankMotion motion;
    const double before = peak_memory();
    // Signals of 8 MB, beside which the rounding in the system's account of memory is small.
    motion.init(site.context().tank_config(), run, rate_params(100.0));
    motion.build(site.context().wavemaker_bank[0], fronts);
    const double growth = peak_memory() - before;
    const double signal = 8.0 * 10000 * 100;
    return motion.series().size() == 16 && growth > 16 * signal && growth < 18.5 * signal;
  }));
}

TEST(RunMemory, ListsOfFrontsThatTheMachineCannotHoldAreRefused) {
  if (Testing::sanitized) GTEST_SKIP() << "a sanitizer needs more addresses than a limit leaves";
  EXPECT_TRUE(Testing::good_alone([] {
    BuiltRun run({}, Testing::Given(1000000, {5, {0.1, 0.0, 0.0}}));
    const bool listed = run.definition.fronts(0U).size() == 1000000;
    Testing::leave_room(2e7);
    const std::string needed = "fronts::1000000 fronts need 0.03 GiB of memory, 0.0";
    return listed && thrown([&] { run.definition.fronts(true); }).rfind(needed, 0) == 0 &&
           thrown([&] { run.definition.fronts(false); }).rfind(needed, 0) == 0 &&
           // This list has its memory already.
           run.definition.fronts(0U).size() == 1000000;
  }));
}

}  // namespace
