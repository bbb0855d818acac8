// A build that is stopped at a chosen place.
#include <iostream>
#include <string>
#include <utility>

#include "test_animation.h"

namespace {

using Testing::AnimatedSea;
using Testing::GridText;
using Testing::StoppingBuffer;
using Testing::thrown;

TEST(AnimateStop, AStopBetweenFrontsEndsTheBuildWithoutAFailure) {
  AnimatedSea sea({{5, {0.1, 0.25, 0.0}}, {5, {0.1, 0.75, 0.0}}, {7, {0.1, 0.5, 0.0}}});
  Base::Params params = GridText{}.params();
  // After the first front of the second column, or the last one.
  for (const auto& [lines, last] :
       {std::pair{4, "0.25\n"}, std::pair{5, "0.25\n0.75\n"}, std::pair{6, "0.25\n0.75\n0.5\n"}}) {
    sea.frames().release();
    StoppingBuffer written(sea.frames(), lines);
    std::streambuf* const shown = std::cout.rdbuf(&written);
    const std::string failure =
        thrown([&] { sea.animate.build(sea.fronts, sea.tank(), sea.run, params); });
    std::cout.rdbuf(shown);
    EXPECT_EQ(failure, Testing::nothing_thrown);
    EXPECT_EQ(written.text(), std::string("0.25\n0.75\n0.5\n") + last);
    EXPECT_FALSE(sea.frames().running());
    EXPECT_EQ(sea.frames().size(0), 0u);
    // Only the first column is stored.
    const std::vector<std::int16_t>& frame = sea.frames().data(0);
    EXPECT_NE(frame[4], 0);
    EXPECT_EQ(std::vector<std::int16_t>(frame.begin() + 5, frame.end()),
              std::vector<std::int16_t>(100, 0));
  }
}

}  // namespace
