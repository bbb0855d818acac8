#include "outputs/progress.h"

#include <gtest/gtest.h>

namespace Outputs {
namespace {

TEST(Step, OfNothingIsDone) {
  double share = 0.0;
  const Progress progress = [&share](const std::string&, double done) {
    share = done;
    return true;
  };
  Step(progress, "x").done(0, 0);
  EXPECT_EQ(share, 1.0);
}

}  // namespace
}  // namespace Outputs
