#include "drive/bank_motion.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <string>
#include <vector>

#include "support/test_site.h"
#include "support/thrown.h"

namespace {

using Synthesis::BankMotion;
using Testing::nothing_thrown;
using Testing::rate_params;
using Testing::thrown;

// A machine that no script can declare.
class OddMachine : public Common::Machine {
 public:
  std::uint32_t type() const override { return 2; }
  double transfer(double, double, double) const override { return 1.0; }
};

// A bank put together by hand.
struct HandBank {
  explicit HandBank(std::int32_t paddle_count, Common::Machine* other = nullptr) {
    if (paddle_count > 0) paddles.pad_pos.build(paddle_count, 1);
    for (std::size_t p = 0; p < paddles.pad_pos.size(); ++p) {
      paddles.pad_pos[p].x = paddles.pad_pos[p].y = paddles.pad_pos[p].angle = 0.0;
    }
    if (other != nullptr) {
      paddles.machines.add(other);
    } else {
      paddles.piston.build();
    }
    Common::Machine& machine = paddles.machine();
    machine.paddle_width = 0.5;
    machine.critical_dimension = 0.0;
    machine.dimension_type.number = 0;
    machine.paddle_motion.build();
    machine.paddle_motion.get()->clip_limit = 1.0;
    machine.paddle_motion.get()->units = "m";
    tank.paddle_depth = 1.0;
    tank.g = 9.81;
    run.init(10.0, 20.0, 0.1, 2.0, false);
    fronts.reset(run.size());
  }

  void init(double rate = 20.0) { motion.init(tank, run, rate_params(rate)); }
  void build() { motion.build(paddles, fronts); }

  Common::Paddles paddles;
  Maths::TankConfig tank;
  Maths::RunData run;
  Maths::FrontSet fronts;
  BankMotion motion;
};

TEST(BankMotion, BuildBeforeInitIsRefused) {
  HandBank bank(1);
  EXPECT_EQ(thrown([&] { bank.build(); }), "Trying to build paddle positions when not initialised");
}

TEST(BankMotion, ABankWithoutPaddlesHasNoSignals) {
  HandBank bank(0);
  bank.fronts.add_front(5, {0.1, 0.0, 0.0});
  bank.init();
  bank.build();
  EXPECT_TRUE(bank.motion.series().empty());
  // A harmonic beyond the samples is not missed.
  bank.init(0.1);
  EXPECT_EQ(thrown([&] { bank.build(); }), nothing_thrown);
}

TEST(BankMotion, InitDiscardsTheSignals) {
  HandBank bank(2);
  bank.init();
  bank.build();
  EXPECT_EQ(bank.motion.series().size(), 2u);
  bank.init();
  EXPECT_TRUE(bank.motion.series().empty());
}

TEST(BankMotion, UnknownDimensionTypesAreRefused) {
  for (const std::int32_t number : {2, -1}) {
    HandBank bank(1);
    bank.paddles.machine().dimension_type.number = number;
    bank.init();
    EXPECT_EQ(thrown([&] { bank.build(); }), "Unsupported critical dimension type found");
  }
}

TEST(BankMotion, UnknownMachinesAreRefused) {
  OddMachine machine;
  HandBank bank(1, &machine);
  bank.fronts.add_front(5, {0.1, 0.0, 0.0});
  bank.init();
  EXPECT_EQ(thrown([&] { bank.build(); }), "Unsupported type of machine found");
  machine.dimension_type.number = 2;
  EXPECT_EQ(thrown([&] { bank.build(); }), "Unsupported critical dimension type found");
}

TEST(BankMotion, AHarmonicOfZeroAmplitudeAddsNothingButNeedsAWaveNumber) {
  HandBank bank(1);
  bank.fronts.slots[5] = {{0.0, 0.3, 0.0}, {0.0, 0.0, 1.0}};
  bank.init();
  bank.build();
  EXPECT_EQ(bank.motion.series().at(0), std::vector<double>(200, 0.0));
  // Frequency 0 has no wave number.
  bank.fronts.slots[0] = {{0.0, 0.0, 0.0}};
  bank.init();
  const std::string text = thrown([&] { bank.build(); });
  EXPECT_EQ(text.rfind("Knum calculation failed for omega=0 and depth = 1", 0), 0u) << text;
}

TEST(BankMotion, AHarmonicOfZeroAmplitudeMustFitTheSamples) {
  HandBank bank(1);
  bank.fronts.slots[20] = {{0.0, 0.0, 0.0}};
  bank.init(2.0);  // 20 samples
  EXPECT_EQ(thrown([&] { bank.build(); }), nothing_thrown);
  bank.init(1.9);
  EXPECT_EQ(thrown([&] { bank.build(); }), "Index 20 out of range");
}

}  // namespace
