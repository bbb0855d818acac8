// Fronts carried together against one front at a time.
#include "maths/carried_fronts.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <string>
#include <utility>
#include <vector>

#include "maths/snell_sum.h"
#include "support/thrown.h"
#include "varied_tank.h"

namespace {

using Maths::CarriedFronts;
using Maths::FrontSet;
using Maths::TankConfig;
using Maths::TankRun;
using Testing::thrown;

constexpr double nan = std::numeric_limits<double>::quiet_NaN();

bool always() { return true; }

// Two fronts of every third harmonic, one of them backwards at times, and one without amplitude.
FrontSet sea() {
  FrontSet set;
  set.reset(grid().size());
  for (std::uint64_t h = 2; h <= 40; h += 3) {
    const auto s = static_cast<double>(h);
    set.append(h, {0.1, 0.4 * std::sin(s), 1.0 + s});
    set.append(h, {0.0, 0.3, nan});
    set.append(h, {0.2, h % 2 == 0 ? 2.9 : -0.3, 2.0});
  }
  set.append(7, {0.0, 1.0, nan});  // a harmonic without any
  return set;
}

// A slope of many pieces in front of the paddles and behind them.
TankConfig slope() {
  TankConfig tank = varied();
  tank.profile.clear();
  for (int i = -50; i <= 200; ++i) {
    tank.profile.push_back({1.0 - 0.004 * i + (i > 100 ? 0.3 : 0.0), 0.1 * i});
  }
  tank.paddle_index = 50;
  tank.x_low = tank.profile.front().x;
  tank.x_high = tank.profile.back().x;
  return tank;
}

void expect_as_one_by_one(CarriedFronts& carried, const TankConfig& tank, double x) {
  const Maths::RunData run = grid();
  TankRun single(tank, run);
  const FrontSet set = sea();
  ASSERT_TRUE(carried.carry_to(x, always)) << x;
  for (const CarriedFronts::Harmonic& harmonic : carried.harmonics()) {
    EXPECT_EQ(harmonic.shoaling, single.shoaling(harmonic.index, x)) << x;
    EXPECT_EQ(harmonic.k0, single.ladder().front().k);
    EXPECT_EQ(harmonic.k1, single.ladder().back().k);
    std::size_t i = harmonic.first;
    for (const Maths::HarmonicFront& front : set.slots[harmonic.index]) {
      if (front.amp == 0.0) continue;
      ASSERT_LT(i, harmonic.last);
      EXPECT_EQ(carried.amps()[i], front.amp);
      EXPECT_EQ(carried.phases()[i], front.phase);
      EXPECT_EQ(carried.lags()[i], single.phase_lag(harmonic.index, x, 0.0, front.angle)) << x;
      ++i;
    }
    EXPECT_EQ(i, harmonic.last);
  }
}

TEST(CarriedFronts, AreWhereEachFrontWouldBe) {
  const Maths::RunData run = grid();
  const FrontSet set = sea();
  for (const TankConfig& tank : {varied(), slope()}) {
    CarriedFronts forward(tank, run, set, 0, set.slots.size());
    EXPECT_EQ(forward.harmonics().size(), 14u);
    for (double x = 0.0; x < 20.0; x += 0.37) expect_as_one_by_one(forward, tank, x);
    // Backward, in any order, and where the bottom changes.
    CarriedFronts anywhere(tank, run, set, 0, set.slots.size());
    for (const double x :
         {20.0, -5.0, -3.3, 8.0, -0.01, 0.0, 4.0, 10.0, 3.9, 15.0, 15.0, 1e-9, 12.0}) {
      expect_as_one_by_one(anywhere, tank, x);
    }
  }
}

// The lag is the root of a difference that consists of rounding alone.
TEST(CarriedFronts, AlongTheCrestsAreWhereEachFrontWouldBe) {
  const Maths::RunData run = grid();
  const TankConfig tank = varied();
  FrontSet set;
  set.reset(run.size());
  for (std::uint64_t h = 1; h <= 40; ++h) {
    const double offset = 1e-9 * static_cast<double>(h * h);
    set.append(h, {0.1, std::asin(1.0) - offset, 0.0});
    set.append(h, {0.1, offset - std::asin(1.0), 0.0});
  }
  CarriedFronts carried(tank, run, set, 0, set.slots.size());
  TankRun single(tank, run);
  for (const double x : {0.7, 3.0, -2.0}) {
    ASSERT_TRUE(carried.carry_to(x, always));
    for (const CarriedFronts::Harmonic& harmonic : carried.harmonics()) {
      for (std::size_t i = harmonic.first; i < harmonic.last; ++i) {
        const double angle = set.slots[harmonic.index][i - harmonic.first].angle;
        const double lag = single.phase_lag(harmonic.index, x, 0.0, angle);
        if (std::isnan(lag)) {
          EXPECT_TRUE(std::isnan(carried.lags()[i])) << x;
        } else {
          EXPECT_EQ(carried.lags()[i], lag) << x;
        }
      }
    }
  }
}

TEST(CarriedFronts, TakeTheirShareOfTheSlots) {
  const Maths::RunData run = grid();
  const FrontSet set = sea();
  const TankConfig tank = varied();
  CarriedFronts some(tank, run, set, 5, 12);
  ASSERT_EQ(some.harmonics().size(), 4u);  // 5, 7, 8 and 11
  EXPECT_EQ(some.harmonics()[1].index, 7u);
  EXPECT_EQ(some.harmonics()[1].first, some.harmonics()[1].last);
  expect_as_one_by_one(some, tank, 12.0);
  CarriedFronts none(tank, run, set, 3, 5);
  EXPECT_TRUE(none.carry_to(12.0, always));
}

TEST(CarriedFronts, NeedNoTankWithoutFronts) {
  const Maths::RunData run = grid();
  const FrontSet set = sea();
  const TankConfig tank = varied();
  CarriedFronts none(tank, run, set, 3, 5);
  for (const double x : {21.0, -6.0, nan}) EXPECT_TRUE(none.carry_to(x, always)) << x;
}

TEST(CarriedFronts, ThrowWhereTankRunThrows) {
  const Maths::RunData run = grid();
  const FrontSet set = sea();
  const TankConfig tank = varied();
  CarriedFronts carried(tank, run, set, 0, set.slots.size());
  for (const auto& place : {std::pair{21.0, "21"}, {-6.0, "-6"}, {nan, "nan"}}) {
    EXPECT_EQ(thrown([&] { carried.carry_to(place.first, always); }), outside(place.second));
  }
  expect_as_one_by_one(carried, tank, 12.0);

  TankConfig dry = slope();
  for (Maths::ProfilePoint& point : dry.profile) {
    if (point.x > 9.0) point.depth = 0.0;
  }
  CarriedFronts ashore(dry, run, set, 0, set.slots.size());
  TankRun single(dry, run);
  const std::string first = thrown([&] { single.shoaling(2, 12.0); });
  EXPECT_NE(first, Testing::nothing_thrown);
  EXPECT_EQ(thrown([&] { ashore.carry_to(12.0, always); }), first);
  EXPECT_EQ(thrown([&] { ashore.carry_to(12.0, always); }), first);
  expect_as_one_by_one(ashore, dry, 8.0);

  FrontSet high;
  high.reset(50);
  high.append(5, {0.1, 0.0, 0.0});
  high.append(41, {0.1, 0.0, 0.0});  // above the highest harmonic
  CarriedFronts beyond(tank, run, high, 0, 50);
  EXPECT_EQ(thrown([&] { beyond.carry_to(3.0, always); }), "Harmonic out of range");
}

TEST(CarriedFronts, CanBeStoppedAtEachPiece) {
  const Maths::RunData run = grid();
  const FrontSet set = sea();
  const TankConfig tank = slope();
  CarriedFronts carried(tank, run, set, 0, set.slots.size());
  int left = 10;
  EXPECT_FALSE(carried.carry_to(15.0, [&] { return --left > 0; }));
  EXPECT_EQ(left, 0);
  expect_as_one_by_one(carried, tank, 15.0);
}

TEST(SnellSum, IsThePlainSum) {
  for (const std::size_t count : {0u, 1u, 5u, 8u, 37u}) {
    std::vector<double> k2(count + 1, 2.0);
    std::vector<double> ky2(count + 1);
    std::vector<double> from(count + 1, 3.0);
    for (std::size_t i = 0; i < count; ++i) ky2[i] = 0.3 * static_cast<double>(i);
    std::vector<double> to = from;
    Maths::add_piece(k2.data(), ky2.data(), -0.7, count, from.data(), to.data());
    for (std::size_t i = 0; i < count; ++i) {
      const double along = 2.0 - ky2[i];
      if (along < 0.0) {
        EXPECT_TRUE(std::isnan(to[i]));
      } else {
        EXPECT_EQ(to[i], 3.0 + std::sqrt(along) * -0.7);
      }
    }
    EXPECT_EQ(to[count], 3.0);
  }
}

}  // namespace
