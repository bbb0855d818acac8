// The wavemaker banks of a site.
#include "fixture.h"
#include "support/thrown_item.h"

namespace {

using Testing::HostTest;

class Banks : public HostTest {
 protected:
  std::string bank_info(jlong experiment, jlong bank, jlong out) {
    return string_from(NATIVE(Kelpbox_1Experiment_1paddle_1bank_1info), experiment, proxy, bank,
                       out, proxy);
  }
};

TEST_F(Banks, BanksAndPaddlesAreCounted) {
  const jlong experiment = basin();
  const auto size = NATIVE(Kelpbox_1Experiment_1paddle_1bank_1size);
  EXPECT_EQ(host.call(NATIVE(Kelpbox_1Experiment_1paddle_1banks), experiment, proxy), 2);
  EXPECT_EQ(host.call(size, experiment, proxy, 0), 2);
  EXPECT_EQ(host.call(size, experiment, proxy, 1), 1);
}

TEST_F(Banks, TheSizeOfABankOutOfRangeLeavesTheArraysLogItem) {
  const jlong experiment = basin();
  const std::string left = Testing::thrown_item(
      [&] { host.call(NATIVE(Kelpbox_1Experiment_1paddle_1bank_1size), experiment, proxy, 2); });
  EXPECT_EQ(left.rfind("item: ", 0), 0u) << left;
  EXPECT_NE(left.find("Array element 2 is out of bounds"), std::string::npos) << left;
}

TEST_F(Banks, ABankReportsItsNameItsDataUnitsAndItsLimits) {
  const jlong experiment = basin();
  const jlong west = params();
  EXPECT_EQ(bank_info(experiment, 0, west), "west");
  EXPECT_EQ(names(west), (std::vector<std::string>{"clip_paddle_motion", "data_units", "gain",
                                                   "max_paddle_motion", "min_paddle_motion"}));
  EXPECT_EQ(value(west, "data_units", "m"), 0.0);
  EXPECT_EQ(units(west, "data_units"), "mm");
  EXPECT_EQ(value(west, "clip_paddle_motion", "mm"), 300.0);
  EXPECT_EQ(value(west, "max_paddle_motion", "mm"), 400.0);
  EXPECT_EQ(value(west, "min_paddle_motion", "mm"), -350.0);
  EXPECT_EQ(value(west, "gain", "V"), 2.5);

  const jlong south = params();
  EXPECT_EQ(bank_info(experiment, 1, south), "south");
  EXPECT_EQ(units(south, "data_units"), "deg");
  EXPECT_EQ(names(south).size(), 4u);
}

TEST_F(Banks, APaddleReportsItsNumberAndItsPlace) {
  const jlong experiment = basin();
  const auto info = NATIVE(Kelpbox_1Experiment_1paddle_1info);
  const jlong upper = params();
  host.call(info, experiment, proxy, 0, 1, upper, proxy);
  EXPECT_EQ(names(upper), (std::vector<std::string>{"angle", "paddle_num", "x", "y"}));
  // The script numbers the paddles of this bank from 3.
  EXPECT_EQ(value(upper, "paddle_num", ""), 4.0);
  EXPECT_EQ(units(upper, "paddle_num"), "");
  EXPECT_EQ(value(upper, "y", "m"), 0.75);

  const jlong south = params();
  host.call(info, experiment, proxy, 1, 0, south, proxy);
  EXPECT_EQ(value(south, "paddle_num", ""), 1.0);
  EXPECT_EQ(value(south, "x", "m"), 3.0);
  EXPECT_EQ(value(south, "y", "m"), -5.0);
  EXPECT_EQ(value(south, "angle", "rad"), 1.5);
}

TEST_F(Banks, BanksAndPaddlesOutOfRangeAreRefused) {
  const jlong experiment = basin();
  const jlong set = params();
  const auto bank = NATIVE(Kelpbox_1Experiment_1paddle_1bank_1info);
  const auto paddle = NATIVE(Kelpbox_1Experiment_1paddle_1info);
  EXPECT_EQ(thrown_by(bank, experiment, proxy, 2, set, proxy), domain("Paddle bank out of range"));
  EXPECT_EQ(thrown_by(bank, experiment, proxy, -1, set, proxy), domain("Paddle bank out of range"));
  EXPECT_EQ(thrown_by(paddle, experiment, proxy, 2, 9, set, proxy),
            domain("Paddle bank out of range"));
  EXPECT_EQ(thrown_by(paddle, experiment, proxy, 0, 2, set, proxy),
            domain("Paddle number out of range"));
  EXPECT_EQ(thrown_by(paddle, experiment, proxy, 1, 1, set, proxy),
            domain("Paddle number out of range"));
  EXPECT_TRUE(names(set).empty());
}

// The units of the data are inserted before the limits.
TEST_F(Banks, ADuplicateLimitIsRefusedAfterTheDataUnitsAreInserted) {
  const jlong set = params({{"clip_paddle_motion", 1, "m"}});
  EXPECT_EQ(
      thrown_by(NATIVE(Kelpbox_1Experiment_1paddle_1bank_1info), basin(), proxy, 0, set, proxy),
      domain("\"clip_paddle_motion\"::Duplicate parameter:"));
  EXPECT_EQ(names(set), (std::vector<std::string>{"clip_paddle_motion", "data_units"}));
}

TEST_F(Banks, ADuplicatePlaceIsRefusedAfterTheNumberIsInserted) {
  const jlong set = params({{"x", 1, "m"}});
  EXPECT_EQ(thrown_by(NATIVE(Kelpbox_1Experiment_1paddle_1info), basin(), proxy, 0, 0, set, proxy),
            domain("\"x\"::Duplicate parameter:"));
  EXPECT_EQ(names(set), (std::vector<std::string>{"paddle_num", "x"}));
}

}  // namespace
