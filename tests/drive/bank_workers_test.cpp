// Drive signals of several workers: the same bits, reports and failures as those of one.
#include <gtest/gtest.h>

#include <algorithm>
#include <bit>
#include <cmath>
#include <cstdint>
#include <numbers>
#include <string>
#include <vector>

#include "drive/bank_motion.h"
#include "drive/drawn_fronts.h"
#include "support/output.h"
#include "support/test_site.h"
#include "support/thrown.h"

namespace {

using Testing::fronts_between;
using Testing::printed;
using Testing::rate_params;
using Testing::Site;
using Testing::SiteText;
using Testing::thrown;

constexpr unsigned worker_counts[] = {1, 2, 3, 7};
constexpr double pi = std::numbers::pi;
constexpr double repeat = 10.0;  // s

// 19 paddles, so that one is left over from the pairs.
SiteText site_of(bool round, double clip_limit = 1e6) {
  SiteText text;
  text.banks[0].clip_limit = clip_limit;
  text.banks[0].paddles.clear();
  for (int p = 0; p < 19; ++p) {
    const double turn = 2.0 * pi * p / 19.0;
    text.banks[0].paddles.push_back(
        round ? Testing::Place{1.5 * std::cos(turn), 1.5 * std::sin(turn), turn - pi}
              : Testing::Place{0.0, 0.5 * p, 0.0});
  }
  return text;
}

// What one build gives.
struct Result {
  Result(const SiteText& text, const Maths::FrontSet& fronts, double rate, unsigned workers) {
    Site site(text);
    Maths::RunData run;
    run.init(repeat, 20.0, 0.1, 2.0, false);
    Synthesis::BankMotion motion;
    const Base::Executor executor(workers);
    output = printed([&] {
      failure = thrown([&] {
        motion.init(site.context().tank_config(), run, rate_params(rate));
        motion.build(site.context().wavemaker_bank[0], fronts, executor);
      });
    });
    for (const std::vector<double>& signal : motion.series()) {
      bits.emplace_back();
      for (const double sample : signal)
        bits.back().push_back(std::bit_cast<std::uint64_t>(sample));
    }
    Base::Params stats;
    motion.stats(stats);
    for (const auto& [name, entry] : stats.entries()) ratios.push_back(entry.value);
  }

  std::string output;
  std::string failure;
  std::vector<std::vector<std::uint64_t>> bits;  // of the samples of each paddle
  std::vector<double> ratios;                    // of clipping
};

void expect_same(const SiteText& text, const Maths::FrontSet& fronts, double rate) {
  const Result one(text, fronts, rate, 1);
  ASSERT_EQ(one.failure, Testing::nothing_thrown);
  ASSERT_EQ(one.bits.size(), text.banks[0].paddles.size());
  for (const unsigned workers : worker_counts) {
    const Result several(text, fronts, rate, workers);
    EXPECT_TRUE(several.bits == one.bits) << workers << " workers, " << rate << " Hz";
    EXPECT_EQ(several.ratios, one.ratios);
    EXPECT_EQ(several.output, one.output);
  }
}

TEST(BankWorkers, SignalsHaveTheSameBitsForEveryNumberOfWorkers) {
  // 1,000 samples, and a prime number and twice a prime number of them.
  for (const double rate : {100.0, 100.9, 201.8}) {
    for (const bool round : {false, true}) {
      expect_same(site_of(round), fronts_between(1, 450, 3), rate);
      expect_same(site_of(round), fronts_between(30, 40, 1), rate);
    }
  }
}

TEST(BankWorkers, ClippingIsCountedAlike) {
  const SiteText text = site_of(false, 0.01);
  const Maths::FrontSet fronts = fronts_between(1, 30, 2);
  ASSERT_EQ(Result(text, fronts, 100.0, 1).ratios.size(), 2u);
  expect_same(text, fronts, 100.0);
}

TEST(BankWorkers, AWideBandIsFilledFromEndToEnd) {
  // The signal of two fronts is the sum of the signals of each. There is a part of the band for
  // each, and many between them.
  SiteText text = site_of(false);
  text.banks[0].paddles.resize(2);
  const auto signal = [&](double low, double high) {
    Maths::FrontSet fronts;
    fronts.reset(40001);
    if (low != 0.0) fronts.slots[3] = {{low, 0.2, 0.3}};
    if (high != 0.0) fronts.slots[40000] = {{high, 0.0, 0.1}};
    const Result result(text, fronts, 10000.0, 3);
    EXPECT_EQ(result.failure, Testing::nothing_thrown);
    std::vector<double> samples;
    for (const std::uint64_t bits : result.bits[1]) samples.push_back(std::bit_cast<double>(bits));
    return samples;
  };
  const std::vector<double> low = signal(0.1, 0.0);
  const std::vector<double> high = signal(0.0, 0.1);
  const std::vector<double> both = signal(0.1, 0.1);
  ASSERT_EQ(both.size(), 100000u);
  double peak = 0.0;
  double worst = 0.0;
  for (std::size_t i = 0; i < both.size(); ++i) {
    peak = std::max(peak, std::abs(high[i]));
    worst = std::max(worst, std::abs(both[i] - low[i] - high[i]));
  }
  EXPECT_GT(peak, 0.01);
  EXPECT_LT(worst, 1e-12);
}

TEST(BankWorkers, HugeSumsAreWrittenInTheSameOrder) {
  const SiteText text = site_of(false, 1e300);
  Maths::FrontSet fronts = fronts_between(1, 450, 2);
  for (const std::size_t h : {7U, 130U, 300U, 449U}) {
    fronts.slots[h].push_back({1e13 * static_cast<double>(h), 0.0, 0.2});
  }
  const std::string output = Result(text, fronts, 100.0, 1).output;
  // Four harmonics for each of the paddles at least.
  EXPECT_GE(std::count(output.begin(), output.end(), ':'), 4 * 19);
  expect_same(text, fronts, 100.0);
}

TEST(BankWorkers, AFailureComesAfterTheReportsBeforeIt) {
  Maths::FrontSet fronts = fronts_between(1, 20, 2);
  fronts.slots[12].push_back({1e13, 0.1, 0.2});
  const Result one(site_of(false), fronts, 1.5, 1);  // 15 samples
  EXPECT_EQ(one.failure, "Index 16 out of range");
  EXPECT_NE(one.output, "");
  for (const unsigned workers : worker_counts) {
    const Result several(site_of(false), fronts, 1.5, workers);
    EXPECT_EQ(several.failure, one.failure);
    EXPECT_EQ(several.output, one.output);
    EXPECT_TRUE(several.bits.empty());
  }
}

}  // namespace
