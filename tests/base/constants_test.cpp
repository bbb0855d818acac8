#include "base/constants.h"

#include <gtest/gtest.h>

#include <numbers>

namespace {

TEST(Constants, HaveFullPrecision) {
  EXPECT_EQ(Base::Pi, std::numbers::pi);
  EXPECT_EQ(Base::TwoPi, 2.0 * std::numbers::pi);
}

}  // namespace
