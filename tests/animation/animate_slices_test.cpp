// Building in slices of columns.
#include "test_animation.h"

namespace {

using Testing::AnimatedSea;
using Testing::Given;
using Testing::GridText;
using Testing::printed;
using Testing::thrown;

const Given oblique = {{5, {0.1, 0.3, 0.4}}, {6, {0.2, -0.2, 0.0}}, {6, {0.1, 2.8, 1.0}}};
const Given straight = {{5, {0.1, 0.0, 0.4}}, {6, {0.2, 0.0, 0.0}}};

std::string slice_refusal(AnimatedSea& sea, std::uint32_t from, std::uint32_t to) {
  return thrown([&] { sea.slice(from, to); });
}

TEST(AnimateSlices, SlicesMakeTheFramesOfAWholeBuild) {
  for (const Given& given : {oblique, straight}) {
    AnimatedSea whole(given);
    whole.build();
    AnimatedSea sliced(given);
    sliced.init();
    EXPECT_EQ(sliced.frames().size(0), 100u);
    EXPECT_FALSE(sliced.frames().complete());
    EXPECT_EQ(printed([&] {
                sliced.slice(8, 15);
                EXPECT_EQ(sliced.frames().progress(), 7.0 / 21.0);
                sliced.slice(0, 8);
                sliced.slice(15, 21);
              }),
              "");
    EXPECT_TRUE(sliced.frames().complete());
    EXPECT_TRUE(sliced.frames().running());
    EXPECT_EQ(sliced.all(), whole.all());
  }
}

TEST(AnimateSlices, ASliceEndsWithTheGrid) {
  AnimatedSea sea(oblique);
  sea.init();
  sea.slice(19, 0xFFFFFFFF);
  EXPECT_EQ(sea.frames().progress(), 2.0 / 21.0);
  sea.slice(21, 30);
  sea.slice(5, 5);
  sea.slice(7, 3);
  EXPECT_EQ(sea.frames().progress(), 2.0 / 21.0);
}

TEST(AnimateSlices, ASliceBeforeInitIsRefused) {
  AnimatedSea sea(oblique);
  EXPECT_EQ(slice_refusal(sea, 0, 1), "animate not initialised");
  GridText grid;
  grid.x_max = -1.0;
  EXPECT_EQ(thrown([&] { sea.init(grid); }), "x_max not greater than x_min");
  EXPECT_EQ(slice_refusal(sea, 0, 1), "animate not initialised");
}

TEST(AnimateSlices, AStopEndsThemAndTheNextInitStartsAgain) {
  AnimatedSea sea(oblique);
  sea.init();
  sea.slice(0, 3);
  sea.frames().stop();
  EXPECT_EQ(sea.frames().progress(), 0.0);
  EXPECT_EQ(slice_refusal(sea, 3, 4), "animate not initialised");
  GridText grid;
  grid.x_step = 1.0;
  sea.init(grid);
  EXPECT_EQ(sea.frames().progress(), 0.0);
  EXPECT_EQ(sea.frames().size(1), 11u);
  sea.slice(0, 11);
  EXPECT_TRUE(sea.frames().complete());
}

TEST(AnimateSlices, ASliceAfterAWholeBuildDoesNothing) {
  AnimatedSea sea(oblique);
  sea.init();
  sea.build();
  const auto before = sea.all();
  sea.fronts.slots[5][0].amp = 1.0;
  sea.slice(0, 21);
  EXPECT_EQ(sea.all(), before);
}

TEST(AnimateSlices, ASecondInitKeepsTheFrames) {
  AnimatedSea sea(oblique);
  sea.init();
  sea.slice(0, 21);
  const auto before = sea.all();
  GridText fine;
  fine.x_step = 0.25;
  sea.init(fine);
  EXPECT_EQ(sea.all(), before);
  EXPECT_EQ(sea.frames().size(1), 21u);
  EXPECT_EQ(sea.frames().progress(), 1.0);

  // The new grid is used with the old frames, as far as they reach.
  sea.slice(20, 21);
  EXPECT_EQ(slice_refusal(sea, 20, 22), "Error x >= x_lim");
  GridText rows;
  rows.y_step = 0.5;
  sea.init(rows);
  EXPECT_EQ(slice_refusal(sea, 0, 1), "Error y >= y_lim");
  GridText fast;
  fast.rate = 20.0;
  sea.init(fast);
  EXPECT_EQ(printed([&] { EXPECT_EQ(slice_refusal(sea, 0, 1), "Error vec.size() != t_lim"); }),
            "vec.size() 200 t_lim 100\n");
}

TEST(AnimateSlices, ATooHighRowIsRefusedAfterTheRowsThatFitAreStored) {
  for (const Given& given : {oblique, straight}) {
    AnimatedSea sea(given);
    sea.init();
    GridText rows;
    rows.y_step = 0.5;
    sea.init(rows);
    EXPECT_EQ(slice_refusal(sea, 0, 1), "Error y >= y_lim");
    EXPECT_EQ(sea.frames().progress(), 5.0 / 105.0);
  }
}

TEST(AnimateSlices, ASingleHarmonicIsNotShortened) {
  AnimatedSea sea({{5, {0.1, 0.3, 0.0}}});
  sea.init();
  EXPECT_EQ(sea.frames().size(0), 100u);
  sea.slice(0, 21);
  EXPECT_TRUE(sea.frames().complete());

  // The frames of a whole build are shorter, and a slice does not fit them.
  AnimatedSea both({{5, {0.1, 0.3, 0.0}}});
  both.build();
  both.init();
  EXPECT_EQ(printed([&] { EXPECT_EQ(slice_refusal(both, 0, 1), "Error vec.size() != t_lim"); }),
            "vec.size() 100 t_lim 50\n");
}

TEST(AnimateSlices, ASliceShowsTheCurrentFronts) {
  AnimatedSea sea(straight);
  sea.init();
  sea.fronts.reset(sea.run.size());
  sea.slice(0, 21);
  EXPECT_TRUE(sea.frames().complete());
  EXPECT_EQ(sea.frames().data(0), std::vector<std::int16_t>(105, 0));
}

// What a slice keeps for the next one must not depend on the order of the columns.
TEST(AnimateSlices, AnyOrderOfSlicesMakesTheFramesOfAWholeBuild) {
  for (const Given& given : {oblique, straight}) {
    AnimatedSea whole(given);
    whole.build();
    AnimatedSea sliced(given);
    sliced.init();
    for (std::uint32_t i = 0; i < 21; ++i) sliced.slice(i * 8 % 21, i * 8 % 21 + 1);
    EXPECT_TRUE(sliced.frames().complete());
    EXPECT_EQ(sliced.all(), whole.all());
  }
}

TEST(AnimateSlices, EachSliceShowsTheFrontsAndTheTankOfItsMoment) {
  using Change = std::function<void(Maths::FrontSet&, Maths::TankConfig&)>;
  const std::vector<Change> changes = {
      [](Maths::FrontSet& fronts, Maths::TankConfig&) { fronts.slots[6][0].phase += 1.0; },
      [](Maths::FrontSet& fronts, Maths::TankConfig&) { fronts.slots[6][0].angle += 0.1; },
      [](Maths::FrontSet& fronts, Maths::TankConfig&) { fronts.slots[7] = fronts.slots[6]; },
      [](Maths::FrontSet&, Maths::TankConfig& tank) { tank.profile.back().depth += 0.5; }};
  for (const Change& change : changes) {
    AnimatedSea sliced(oblique);
    Maths::TankConfig tank = sliced.tank();
    sliced.init();
    sliced.slice(0, 10);
    change(sliced.fronts, tank);
    sliced.animate.build_slice(sliced.fronts, tank, sliced.run, 10, 21);

    AnimatedSea before(oblique);
    before.build();
    AnimatedSea after(oblique);
    change(after.fronts, tank = after.tank());
    Base::Params params = GridText().params();
    printed([&] { after.animate.build(after.fronts, tank, after.run, params); });
    ASSERT_NE(before.all(), after.all());
    constexpr std::size_t rows = 5;
    for (std::uint32_t t = 0; t < 100; ++t) {
      const std::vector<std::int16_t>& frame = sliced.frames().data(t);
      for (std::size_t i = 0; i < frame.size(); ++i) {
        const AnimatedSea& shown = i < 10 * rows ? before : after;
        ASSERT_EQ(frame[i], shown.animate.frames().data(t)[i]) << t << " " << i;
      }
    }
  }
}

TEST(AnimateSlices, ASliceAfterAChangeOfTheRunIsThatOfAWholeBuild) {
  AnimatedSea whole(oblique);
  whole.build();
  AnimatedSea sliced(oblique);
  sliced.init();
  sliced.slice(0, 10);
  sliced.run.init(10.0, 100.0, 0.1, 1.9, false);
  sliced.slice(10, 21);
  EXPECT_TRUE(sliced.frames().complete());
  EXPECT_EQ(sliced.all(), whole.all());
}

TEST(AnimateSlices, ASliceAfterAFailureIsThatOfAWholeBuild) {
  AnimatedSea whole(oblique);
  whole.build();
  AnimatedSea sliced(oblique);
  sliced.init();
  sliced.slice(0, 8);
  Maths::TankConfig empty = sliced.tank();
  empty.profile.clear();
  const auto fail = [&] { sliced.animate.build_slice(sliced.fronts, empty, sliced.run, 8, 21); };
  EXPECT_EQ(thrown(fail), "Value x=4 is outside dimensions of tank");
  sliced.slice(8, 21);
  EXPECT_TRUE(sliced.frames().complete());
  EXPECT_EQ(sliced.all(), whole.all());
}

TEST(AnimateSlices, AColumnOutsideTheTankIsRefused) {
  AnimatedSea sea(oblique);
  GridText grid;
  grid.x_max = 41.0;
  grid.x_step = 1.0;
  sea.init(grid);
  sea.slice(0, 41);
  EXPECT_EQ(slice_refusal(sea, 41, 42), "Value x=41 is outside dimensions of tank");
}

}  // namespace
