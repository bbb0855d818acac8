#include "cli/progress_bar.h"

#include "cli/program_run.h"
#include "cli/sample_jobs.h"

using Cli::duration_text;
using Cli::progress_line;

TEST(ProgressBar, ShowsShareAndRemainingTime) {
  EXPECT_EQ(progress_line("2 of 8, a.toml", {.done = 0.25, .left = 90}, 80),
            "2 of 8, a.toml  [#####...............]  25 %  1 min 30 s left");
  EXPECT_EQ(progress_line("a", {.done = 1.0, .left = 0}, 80),
            "a  [####################] 100 %  0 s left");
}

TEST(ProgressBar, ShowsNoTimeThatIsNotKnown) {
  EXPECT_EQ(progress_line("a", {.done = 0.5, .spent = 30}, 80), "a  [##########..........]  50 %");
}

TEST(ProgressBar, LetsTheTimeLeftFallBetweenTwoEnds) {
  // Two of eight ended in 30 s: 15 s each, so six take 90 s.
  EXPECT_DOUBLE_EQ(Cli::seconds_left(2, 8, 30, 0), 90);
  EXPECT_DOUBLE_EQ(Cli::seconds_left(2, 8, 30, 10), 80);
  EXPECT_DOUBLE_EQ(Cli::seconds_left(2, 8, 30, 1000), 0);
  EXPECT_TRUE(std::isnan(Cli::seconds_left(0, 8, 0, 10)));
}

TEST(ProgressBar, ShowsTheTimeOfAStepWithoutAShare) {
  EXPECT_EQ(progress_line("storm.toml, waves", {.spent = 75}, 80), "storm.toml, waves  1 min 15 s");
}

TEST(ProgressBar, FitsIntoTheTerminal) {
  const std::string name(200, 'x');
  for (const std::size_t width : {0U, 1U, 10U, 40U, 80U, 200U}) {
    EXPECT_LE(progress_line(name, {.done = 0.5, .left = 10}, width).size(), width) << width;
  }
  EXPECT_NE(progress_line(name, {.done = 0.5, .left = 10}, 60).find("50 %"), std::string::npos);
}

TEST(ProgressBar, WritesDurationsInUnitsOfTheirSize) {
  EXPECT_EQ(duration_text(0.4), "0 s");
  EXPECT_EQ(duration_text(59.4), "59 s");
  EXPECT_EQ(duration_text(59.6), "1 min 00 s");
  EXPECT_EQ(duration_text(3599), "59 min 59 s");
  EXPECT_EQ(duration_text(3600 + 5 * 60), "1 h 05 min");
}

namespace {

class ProgressBarOfARun : public testing::Test {
 protected:
  ProgressBarOfARun() {
    folder_.write("slow.toml", Testing::slow_job());
    folder_.write("quick.toml", Testing::quick_job());
    setting_.folder = folder_.path();
  }
  Testing::TempDir folder_;
  Testing::Setting setting_;
};

}  // namespace

TEST_F(ProgressBarOfARun, AppearsOnATerminalAndIsErased) {
  const Testing::Ran ran =
      Testing::run_on_terminal({"run", "slow.toml"}, setting_, std::chrono::seconds(4));
  EXPECT_NE(ran.out.find("slow.toml, "), std::string::npos);
  // Erased before the message that follows.
  EXPECT_NE(ran.out.find("\r\033[Kinterrupted"), std::string::npos) << ran.out;
}

TEST_F(ProgressBarOfARun, DoesNotAppearIfTheRunIsQuiet) {
  const Testing::Ran ran =
      Testing::run_on_terminal({"run", "slow.toml", "--quiet"}, setting_, std::chrono::seconds(4));
  EXPECT_EQ(ran.out.find("slow.toml, "), std::string::npos) << ran.out;
}

TEST_F(ProgressBarOfARun, DoesNotAppearForQuickWork) {
  const Testing::Ran ran = Testing::run_on_terminal({"run", "quick.toml"}, setting_);
  EXPECT_EQ(ran.code, 0);
  EXPECT_EQ(ran.out.find("\033[K"), std::string::npos);
}
