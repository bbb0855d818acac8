#include "outputs/field_frames.h"

#include <gtest/gtest.h>

#include "outputs/made_run.h"
#include "support/temp_dir.h"

namespace Outputs {
namespace {

class FieldFramesOfARun : public testing::Test {
 protected:
  std::string refusal() {
    try {
      const FieldFrames frames(*made_.run, nullptr);
    } catch (const Jobs::BadJob& bad) {
      return bad.faults.at(0).fault;
    }
    return "(made)";
  }
  std::vector<std::vector<std::int16_t>> frames(unsigned workers) {
    made_.run->experiment.set_workers(workers);
    const FieldFrames field(*made_.run, nullptr);
    std::vector<std::vector<std::int16_t>> all;
    for (std::size_t i = 0; i < field.frames(); ++i) all.push_back(field.frame(i));
    return all;
  }

  Testing::TempDir dir_;
  Testing::MadeRun made_{dir_.write("storm.toml", Testing::basin_job())};
};

TEST_F(FieldFramesOfARun, AreTheSameForEveryNumberOfWorkers) {
  const auto alone = frames(1);
  EXPECT_EQ(alone.size(), 160U);
  EXPECT_TRUE(frames(3) == alone);
}

TEST_F(FieldFramesOfARun, AreRefusedWithTheReasonOfTheLibrary) {
  made_.run->field->x_max = made_.run->field->x_min;
  EXPECT_EQ(refusal(), "field: x_max not greater than x_min");
}

// 32 s at 50 Hz are 1600 frames of 50,001 x 50,001 points, each of 2 bytes.
TEST_F(FieldFramesOfARun, AreRefusedWithTheirSizeWithoutMemory) {
  made_.run->field->rate = 50.0;
  made_.run->field->x_step = 30.0 / 50'000;
  made_.run->field->y_step = 19.0 / 50'000;
  EXPECT_EQ(refusal(), "the field needs 8000 GB, which this machine does not have");
}

}  // namespace
}  // namespace Outputs
