#include "base/compose.h"

#include <gtest/gtest.h>

#include <iomanip>
#include <new>
#include <string>

#include "base/memory.h"
#include "support/own_process.h"

namespace {

using Base::compose;
using Base::operator""_MiB;

TEST(Compose, WritesThePartsOneAfterTheOther) {
  EXPECT_EQ(compose("Value x=", 1.5, " is ", std::string("outside"), 'y', 7U),
            "Value x=1.5 is outsidey7");
}

TEST(Compose, AManipulatorChangesThePartsAfterIt) {
  EXPECT_EQ(compose(2.0 / 3.0, " ", std::setprecision(2), 2.0 / 3.0), "0.666667 0.67");
}

TEST(Compose, AMessageThatDoesNotFitIntoMemoryIsNotCutShort) {
  if (Testing::sanitized) GTEST_SKIP() << "sanitizers end the process where memory ends";
  EXPECT_TRUE(Testing::good_alone([] {
    const std::string part(64_MiB, 'x');
    Testing::leave_room(16_MiB);
    try {
      compose("A message of ", part);
      return false;
    } catch (const std::bad_alloc&) {
      return true;
    }
  }));
}

}  // namespace
