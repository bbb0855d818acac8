// The example sites: each can be read, and matches the description in its comment.
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>

#include "site_script.h"
#include "support/thrown.h"
#include "support/thrown_item.h"

namespace {

using Testing::nothing_thrown;
using Testing::thrown_item;

namespace Limit = Common::Limit;

struct ExampleSite : Load {
  explicit ExampleSite(const std::string& name) : Load(File{TEST_ROOT "/../examples/" + name}) {
    EXPECT_TRUE(ok()) << failure << report.str() << log_text.str();
    EXPECT_EQ(output.find("UNFOUND"), std::string::npos) << output;
    context().make_ready();
    EXPECT_EQ(thrown_item([&] { context().get_consts(consts); }), nothing_thrown);
    EXPECT_EQ(thrown_item([&] { context().tank.get()->query(tunable); }), nothing_thrown);
  }
  const Maths::TankConfig& config() { return context().tank_config(); }
  double depth(double x) {
    const auto& points = config().profile;
    for (std::size_t i = 0; i + 1 < points.size(); ++i) {
      if (x > points[i + 1].x) continue;
      const double t = (x - points[i].x) / (points[i + 1].x - points[i].x);
      return points[i].depth + t * (points[i + 1].depth - points[i].depth);
    }
    return -1.0;
  }

  Base::Params consts;
  Base::Params tunable;
};

TEST(Examples, TheFlumeMatchesItsDescription) {
  ExampleSite site("flume.site");
  Common::Context& context = site.context();
  EXPECT_EQ(context.full_name(), "Flume 1 beach 1:10");
  EXPECT_EQ(context.get(Limit::max_x), 25.0);
  EXPECT_EQ(context.get(Limit::max_y), 0.8);
  EXPECT_EQ(context.get(Limit::base_rate), 50.0);
  EXPECT_EQ(context.get(Limit::max_freq), 2.0);
  EXPECT_NEAR(context.get(Limit::max_angle), M_PI / 3, 1e-15);
  EXPECT_EQ(site.consts.get_enum("geometry", "Geometry"), 4u);

  const Maths::TankConfig& config = site.config();
  EXPECT_FALSE(config.has_walls);
  EXPECT_EQ(config.paddle_index, 0u);
  EXPECT_DOUBLE_EQ(config.paddle_depth, 0.7);
  EXPECT_DOUBLE_EQ(site.depth(10), 0.7);
  EXPECT_NEAR(site.depth(20), 0.7 - 0.15, 1e-9);
  EXPECT_NEAR(site.depth(24), 0.7 - 0.55, 1e-9);
  EXPECT_EQ(config.profile.back().x, 25.0);
  // The walk ends within 25 mm of the end.
  EXPECT_NEAR(config.profile.back().depth, 0.05, 0.0025);

  ASSERT_EQ(context.wavemaker_bank.size(), 1u);
  const Common::Paddles& bank = context.wavemaker_bank[0];
  EXPECT_EQ(bank.pad_pos.size(), 1u);
  EXPECT_EQ(bank.machine().type(), 1u);
  EXPECT_DOUBLE_EQ(bank.machine().get(Common::Machine::maximum, Base::resolve_units("mm")), 450.0);
  EXPECT_DOUBLE_EQ(site.tunable.get("drive_gain", ""), 1.0);
  EXPECT_DOUBLE_EQ(site.consts.get("max_still_water_correction", "m"), 0.02);
}

TEST(Examples, TheBasinMatchesItsDescription) {
  ExampleSite site("basin.site");
  Common::Context& context = site.context();
  EXPECT_EQ(context.full_name(), "Wave basin ridge");
  const Maths::TankConfig& config = site.config();
  EXPECT_TRUE(config.has_walls);
  EXPECT_DOUBLE_EQ(config.width, 20.0);
  EXPECT_DOUBLE_EQ(config.y_ref, 10.0);
  EXPECT_EQ(config.base_rate, 64.0);
  EXPECT_DOUBLE_EQ(config.paddle_depth, 2.0);
  EXPECT_EQ(config.profile.front().x, 0.0);
  EXPECT_EQ(config.profile.back().x, 30.0);
  EXPECT_DOUBLE_EQ(config.profile.back().depth, 2.0);
  EXPECT_TRUE(std::is_sorted(config.profile.begin(), config.profile.end(),
                             [](const auto& a, const auto& b) { return a.x < b.x; }));
  for (double x = 8; x <= 20; x += 0.25) {
    EXPECT_NEAR(site.depth(x), 2.0 - 0.6 * std::pow(std::cos(M_PI * (x - 14) / 12), 2), 0.01) << x;
  }

  ASSERT_EQ(context.wavemaker_bank.size(), 1u);
  const Common::Paddles& bank = context.wavemaker_bank[0];
  ASSERT_EQ(bank.pad_pos.size(), 40u);
  for (std::size_t i = 0; i < 40; ++i) {
    EXPECT_EQ(bank.pad_pos[i].x, 0.0);
    EXPECT_DOUBLE_EQ(bank.pad_pos[i].y, 0.25 + 0.5 * static_cast<double>(i));
    EXPECT_EQ(bank.pad_pos[i].angle, 0.0);
  }
  EXPECT_EQ(bank.machine().type(), 0u);
  EXPECT_EQ(bank.machine().paddle_width * 40, config.width);
  Base::Params limits;
  bank.machine().get_limits(limits);
  EXPECT_EQ(limits.get("max_paddle_motion", "deg"), 15.0);
  EXPECT_EQ(limits.get("gear_ratio", ""), 12.5);
  EXPECT_DOUBLE_EQ(limits.get("rod_length", "m"), 0.65);
}

TEST(Examples, TheLShapedBasinMatchesItsDescription) {
  ExampleSite site("l_basin.site");
  Common::Context& context = site.context();
  EXPECT_EQ(context.full_name(), "L basin crossed seas");
  EXPECT_NEAR(context.get(Limit::base_rate), 32.0, 1e-9);
  EXPECT_DOUBLE_EQ(context.get(Limit::max_angle), M_PI);
  EXPECT_DOUBLE_EQ(context.get(Limit::min_angle), -M_PI);
  EXPECT_EQ(context.get(Limit::max_freq), 1.8);
  const Maths::TankConfig& config = site.config();
  EXPECT_FALSE(config.has_walls);
  EXPECT_DOUBLE_EQ(config.paddle_depth, 1.0);
  EXPECT_DOUBLE_EQ(site.depth(3), 1.0);
  EXPECT_NEAR(site.depth(10), 0.8, 1e-9);
  EXPECT_DOUBLE_EQ(site.depth(18), 0.6);

  ASSERT_EQ(context.wavemaker_bank.size(), 2u);
  const Common::Paddles& end_wall = context.wavemaker_bank[0];
  const Common::Paddles& side_wall = context.wavemaker_bank[1];
  EXPECT_EQ(end_wall.name, "end wall");
  EXPECT_EQ(side_wall.name, "side wall");
  ASSERT_EQ(end_wall.pad_pos.size(), 24u);
  ASSERT_EQ(side_wall.pad_pos.size(), 16u);
  for (std::size_t i = 0; i < 24; ++i) {
    EXPECT_EQ(end_wall.pad_pos[i].x, 0.0);
    EXPECT_NEAR(end_wall.pad_pos[i].y, 0.2 + 0.4 * static_cast<double>(i), 1e-12);
    EXPECT_EQ(end_wall.pad_pos[i].angle, 0.0);
  }
  for (std::size_t i = 0; i < 16; ++i) {
    EXPECT_NEAR(side_wall.pad_pos[i].x, 0.2 + 0.4 * static_cast<double>(i), 1e-12);
    EXPECT_EQ(side_wall.pad_pos[i].y, 0.0);
    EXPECT_NEAR(side_wall.pad_pos[i].angle, M_PI / 2, 1e-14);
  }
  EXPECT_EQ(end_wall.machine().type(), 1u);
  EXPECT_EQ(side_wall.machine().type(), 1u);
  EXPECT_NE(&end_wall.machine(), &side_wall.machine());
  EXPECT_TRUE(site.tunable.entries().empty());
}

TEST(Examples, HaveDifferentIdentities) {
  ExampleSite flume("flume.site");
  ExampleSite basin("basin.site");
  ExampleSite l_basin("l_basin.site");
  EXPECT_NE(flume.reader.checksum(), basin.reader.checksum());
  EXPECT_NE(basin.reader.checksum(), l_basin.reader.checksum());
  EXPECT_EQ(flume.context().identity(flume.reader.checksum()).substr(0, 42),
            "Hydraulics Laboratory::Flume 1::beach 1:10");
}

}  // namespace
