#include <limits>

#include "base/constants.h"
#include "gtest/gtest.h"
#include "jobs/show_number.h"

using Jobs::show_direction;
using Jobs::show_number;
using Jobs::show_quantity;
using Jobs::show_share;
using Jobs::Zeros;

TEST(ShowNumber, KeepsSignificantDigits) {
  EXPECT_EQ(show_number(0.19449, 2), "0.19");
  EXPECT_EQ(show_number(80, 3), "80.0");
  EXPECT_EQ(show_number(-3.14159, 3), "-3.14");
  EXPECT_EQ(show_number(12843, 3), "12800");
  EXPECT_EQ(show_number(0.000123, 2), "0.00012");
}

TEST(ShowNumber, CountsDigitsAfterRounding) {
  EXPECT_EQ(show_number(99.96, 3), "100");
  EXPECT_EQ(show_number(0.99996, 3), "1.00");
}

TEST(ShowNumber, DropsZerosOnRequest) {
  EXPECT_EQ(show_number(2.0, 3, Zeros::drop), "2");
  EXPECT_EQ(show_number(2.50, 3, Zeros::drop), "2.5");
  EXPECT_EQ(show_number(100, 3, Zeros::drop), "100");
}

TEST(ShowNumber, ShowsWhatIsNotFinite) {
  EXPECT_EQ(show_number(std::numeric_limits<double>::quiet_NaN(), 3), "NaN");
  EXPECT_EQ(show_number(-std::numeric_limits<double>::infinity(), 3), "-infinite");
  EXPECT_EQ(show_number(-0.0, 3), "0");
  EXPECT_EQ(show_number(1.5e-300, 3), "1.50e-300");
  EXPECT_EQ(show_number(2.5e12, 2), "2.5e+12");
  const double infinite = std::numeric_limits<double>::infinity();
  EXPECT_EQ(show_quantity(infinite, "m", 3), "infinite m");
  EXPECT_EQ(show_direction(infinite), "infinite deg");
  EXPECT_EQ(Jobs::show_time(-infinite), "-infinite s");
  EXPECT_EQ(show_share(infinite), "infinite %");
}

TEST(ShowNumber, ChoosesMilliForSmallLengthsAndStrokes) {
  EXPECT_EQ(show_quantity(0.08, "m", 3), "80.0 mm");
  EXPECT_EQ(show_quantity(0.9996, "m", 3), "1.00 m");
  EXPECT_EQ(show_quantity(0.0434, "rad", 2), "43 mrad");
  EXPECT_EQ(show_quantity(0.12, "m/s2", 2), "120 mm/s2");
  EXPECT_EQ(show_quantity(0.194, "rad/s", 2), "0.19 rad/s");
  EXPECT_EQ(show_quantity(1.6, "s", 3), "1.60 s");
  EXPECT_EQ(show_quantity(0.05, "1", 2), "0.050");
  EXPECT_EQ(show_quantity(0.0, "m", 3), "0 m");
  EXPECT_EQ(show_quantity(0.0004, "m2", 3), "400 mm2");
  EXPECT_EQ(show_quantity(0.5, "", 2), "0.50");
}

TEST(ShowNumber, ShowsDirectionsInDegreesAndSharesPerCent) {
  EXPECT_EQ(show_direction(Base::Pi / 12), "15.0 deg");
  EXPECT_EQ(show_direction(-1e-9), "0.0 deg");
  EXPECT_EQ(show_share(0.0062), "0.6 %");
  EXPECT_EQ(show_share(0.0996), "10 %");
  EXPECT_EQ(show_share(0.0251), "2.5 %");
  EXPECT_EQ(show_share(1.0), "100 %");
}
