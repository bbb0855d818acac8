// A path along the bottom that did not fit into memory.
#include <gtest/gtest.h>

#include <new>

#include "support/failing_memory.h"
#include "varied_tank.h"

namespace {

// The path to x = 10 has more pieces than the one to x = 2.
TEST(PathMemory, APathThatDidNotFitIsNotTakenForTheOneBefore) {
  Maths::TankRun run = varied_run();
  run.build_ladder(10, 2.0);
  {
    const Testing::FailingMemory memory(0, Testing::Fails::from_there_on);
    EXPECT_THROW(run.build_ladder(10, 10.0), std::bad_alloc);
  }
  run.build_ladder(10, 2.0);
  double length = 0.0;
  for (const auto& rung : run.ladder()) length += rung.dx;
  EXPECT_DOUBLE_EQ(length, 2.0);
}

}  // namespace
