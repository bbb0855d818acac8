// Waves cut from records whose waves are known.
#include "analysis/wave_list.h"

#include <gtest/gtest.h>

#include "base/params.h"

namespace {

Base::DataSet record(std::vector<double> samples, double rate) {
  Base::Params params;
  params.insert("rate", rate, "Hz");
  return {Base::Vector("record", Base::default_units(Base::Category::length), std::move(samples)),
          params};
}

TEST(WaveList, ASampleOfZeroBeforeARiseIsTheCrossing) {
  Base::DataSet set = record({-1.0, 0.0, 2.0, -3.0, 0.0, 1.0, -1.0}, 2.0);
  const Analysis::WaveList list(set, false);
  ASSERT_EQ(list.waves.size(), 1u);
  EXPECT_DOUBLE_EQ(list.waves[0].start, 0.5);
  EXPECT_DOUBLE_EQ(list.waves[0].end, 2.0);
  EXPECT_DOUBLE_EQ(list.waves[0].crest, 2.0);
  EXPECT_DOUBLE_EQ(list.waves[0].trough, -3.0);
}

}  // namespace
