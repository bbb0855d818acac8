// Whole signals against the plain sum over harmonics at every sample, and what happens to them from
// build to build.
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <complex>
#include <cstdint>
#include <numbers>
#include <vector>

#include "drive/bank_motion.h"
#include "drive/drawn_fronts.h"
#include "drive/row_sums.h"
#include "support/test_site.h"

namespace {

using Synthesis::BankMotion;
using Testing::fronts_between;
using Testing::rate_params;
using Testing::Site;
using Testing::SiteText;

constexpr double pi = std::numbers::pi;
constexpr double repeat = 10.0;  // s

SiteText site_of(const std::vector<Testing::Place>& paddles, double clip_limit = 100.0) {
  SiteText text;
  text.banks[0].paddles = paddles;
  text.banks[0].clip_limit = clip_limit;
  return text;
}

std::vector<Testing::Place> line(std::size_t paddles) {
  std::vector<Testing::Place> places;
  for (std::size_t p = 0; p < paddles; ++p)
    places.push_back({0.0, 0.5 * static_cast<double>(p), 0.0});
  return places;
}

// A built bank. The run has harmonics of 0.1 Hz.
struct Bank {
  explicit Bank(const SiteText& text) : site(text) { run.init(repeat, 20.0, 0.1, 2.0, false); }
  void build(const Maths::FrontSet& fronts, double rate) {
    motion.init(site.context().tank_config(), run, rate_params(rate));
    motion.build(paddles(), fronts);
  }
  const Common::Paddles& paddles() { return site.context().wavemaker_bank[0]; }

  Site site;
  Maths::RunData run;
  BankMotion motion;
};

// The signal of one paddle, sample by sample.
std::vector<double> plain_signal(Bank& bank, std::size_t p, const Maths::FrontSet& fronts,
                                 std::size_t samples) {
  const Common::PadPos& place = bank.paddles().pad_pos[p];
  const Common::Machine& machine = bank.paddles().machine();
  const Synthesis::PaddleRow row{machine.paddle_width, {place.x}, {place.y}, {place.angle}};
  std::vector<double> signal(samples, 0.0);
  for (std::size_t h = 1; h < fronts.slots.size() && 2 * h <= samples; ++h) {
    if (fronts.slots[h].empty()) continue;
    const double k = Testing::wave_number(2.0 * pi * static_cast<double>(h) / repeat, 1.0);
    const double ratio = machine.ratio(k, 1.0, machine.working_edge(1.0));
    const std::complex<double> sum = Testing::plain_sum(row, 0, fronts.slots[h], k, ratio);
    for (std::size_t j = 0; j < samples; ++j) {
      const double turn =
          2.0 * pi * static_cast<double>(h * j % samples) / static_cast<double>(samples);
      signal[j] += (sum * std::polar(1.0, turn)).real();
    }
  }
  return signal;
}

// Within 1e-12 of the largest stroke of the bank.
void expect_plain_signals(Bank& bank, const Maths::FrontSet& fronts, std::size_t samples) {
  ASSERT_EQ(bank.motion.series().size(), bank.paddles().pad_pos.size());
  double peak = 0.0;
  double worst = 0.0;
  for (std::size_t p = 0; p < bank.motion.series().size(); ++p) {
    const std::vector<double>& signal = bank.motion.series()[p];
    const std::vector<double> expected = plain_signal(bank, p, fronts, samples);
    ASSERT_EQ(signal.size(), samples);
    for (std::size_t j = 0; j < samples; ++j) {
      peak = std::max(peak, std::abs(expected[j]));
      worst = std::max(worst, std::abs(signal[j] - expected[j]));
    }
  }
  EXPECT_GT(peak, 0.0);
  EXPECT_LE(worst, 1e-12 * peak) << samples << " samples";
}

TEST(BankSignals, AgreeWithThePlainSumForAnyLengthAndBand) {
  Bank bank(site_of(line(19)));
  for (const auto& [first, last] : std::vector<std::pair<std::uint64_t, std::uint64_t>>{
           {1, 20}, {3, 3}, {7, 8}, {5, 12}, {2, 17}, {9, 20}}) {
    const Maths::FrontSet fronts = fronts_between(first, last, 3);
    // Odd, even, prime, and with the highest harmonics at or above half the samples.
    for (const std::size_t samples : {1009u, 200u, 201u, 211u, 64u, 40u, 39u, 34u, 25u, 21u, 20u}) {
      bank.build(fronts, static_cast<double>(samples) / repeat);
      expect_plain_signals(bank, fronts, samples);
    }
  }
}

TEST(BankSignals, ARoundBankAgreesWithThePlainSum) {
  std::vector<Testing::Place> places;
  for (int p = 0; p < 30; ++p) {
    const double place = 2.0 * pi * p / 30.0;
    places.push_back({3.0 + 3.0 * std::cos(place), 3.0 * std::sin(place), place - pi});
  }
  Bank bank(site_of(places));
  const Maths::FrontSet fronts = fronts_between(2, 20, 31);
  bank.build(fronts, 20.0);
  expect_plain_signals(bank, fronts, 200);
}

TEST(BankSignals, RepeatToTheBitWhateverWasBuiltBefore) {
  const Maths::FrontSet fronts = fronts_between(2, 20, 3);
  Bank fresh(site_of(line(19)));
  fresh.build(fronts, 20.0);
  Bank used(site_of(line(19)));
  used.build(fronts_between(1, 19, 2), 20.0);
  used.build(fronts, 20.0);
  EXPECT_EQ(used.motion.series(), fresh.motion.series());
  used.build(fronts, 17.3);
  used.build(fronts, 20.0);
  EXPECT_EQ(used.motion.series(), fresh.motion.series());
}

TEST(BankSignals, ABuildTakesTheMemoryOfTheLast) {
  const Maths::FrontSet fronts = fronts_between(2, 20, 3);
  Bank bank(site_of(line(3)));
  bank.build(fronts, 20.0);
  const double* const first = bank.motion.series()[0].data();
  bank.build(fronts, 20.0);
  EXPECT_EQ(bank.motion.series()[0].data(), first);
}

TEST(BankSignals, BuildingTwiceWithoutInitGivesTheSignalsOnce) {
  Maths::FrontSet fronts;
  fronts.reset(21);
  fronts.slots[8] = {{0.05, 0.0, 0.3}};
  for (const bool clipped : {false, true}) {
    Bank bank(site_of(line(3), clipped ? 0.01 : 100.0));
    bank.build(fronts, 20.0);
    Base::Params stats;
    bank.motion.stats(stats);
    EXPECT_EQ(stats.entries().empty(), !clipped);
    const std::vector<std::vector<double>> once = bank.motion.series();
    bank.motion.build(bank.paddles(), fronts);
    EXPECT_EQ(bank.motion.series(), once);
  }
}

// The clipping ratios of signals, counted by the scan alone.
Base::Params scanned(const BankMotion& motion, double limit) {
  Maths::ClipStats stats;
  stats.limit = limit;
  for (const std::vector<double>& samples : motion.series()) {
    std::vector<Maths::ClipPeak> peaks;
    Maths::clip_scan(Base::Vector("", Base::Units(), samples), stats, peaks);
  }
  Base::Params out;
  Maths::clip_report(stats, out);
  return out;
}

TEST(BankSignals, TheLastPaddleAloneAboveTheLimitCountsAgainstAll) {
  Bank bank(site_of({{0.0, 0.0, 1.2}, {0.0, 0.5, 1.2}, {0.0, 1.0, 0.0}}));
  Maths::FrontSet fronts;
  fronts.reset(21);
  fronts.slots[8] = {{0.05, 0.0, 0.3}};
  bank.build(fronts, 20.0);
  const auto peak = [&](std::size_t p) {
    const std::vector<double>& signal = bank.motion.series()[p];
    return *std::max_element(signal.begin(), signal.end());
  };
  const double limit = 0.9 * peak(2);
  ASSERT_LT(peak(0), limit);
  ASSERT_LT(peak(1), limit);

  Bank limited(site_of({{0.0, 0.0, 1.2}, {0.0, 0.5, 1.2}, {0.0, 1.0, 0.0}}, limit));
  limited.build(fronts, 20.0);
  EXPECT_EQ(limited.motion.series(), bank.motion.series());
  Base::Params stats;
  limited.motion.stats(stats);
  const Base::Params expected = scanned(bank.motion, limit);
  ASSERT_EQ(expected.entries().size(), 2u);
  for (const char* name : {"clip_power_ratio", "clip_peak_ratio"}) {
    EXPECT_NEAR(stats.at(name).value, expected.at(name).value, 1e-12) << name;
  }
  // One half wave in three.
  EXPECT_NEAR(stats.at("clip_peak_ratio").value, 1.0 / 3.0, 1e-12);
}

}  // namespace
