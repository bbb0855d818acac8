// Failures before a site has been read, as a host sees them.
#include "fixture.h"

namespace {

using Testing::HostTest;

class BeforeInitialise : public HostTest {};

TEST_F(BeforeInitialise, EachGuardedOperationThrowsItsFixedMessage) {
  const jlong empty = empty_experiment();
  const jlong set = params({{"delta_x", 1.0, "m"}});
  EXPECT_EQ(thrown_by(NATIVE(Kelpbox_1Experiment_1get_1consts), empty, proxy, set, proxy),
            domain("Uncaught Exception in Experiment get consts"));
  EXPECT_EQ(thrown_by(NATIVE(Kelpbox_1Experiment_1query), empty, proxy, set, proxy),
            domain("Uncaught Exception in Experiment Query"));
  EXPECT_EQ(thrown_by(NATIVE(Kelpbox_1Experiment_1set), empty, proxy, set, proxy),
            domain("Uncaught Exception in Experiment set"));
  EXPECT_EQ(host.call(NATIVE(Kelpbox_1Experiment_1profile), empty, proxy, set, proxy), 0);
  EXPECT_EQ(host.take_thrown(), domain("Uncaught Exception in Experiment profile"));
}

TEST_F(BeforeInitialise, ACharacterPointerLeavesTheOtherOperations) {
  const jlong empty = empty_experiment();
  const jlong set = params();
  const std::string text = "Object not built";
  EXPECT_EQ(text_leaving(NATIVE(Kelpbox_1Experiment_1context_1name), empty, proxy), text);
  EXPECT_EQ(text_leaving(NATIVE(Kelpbox_1Experiment_1context_1string), empty, proxy), text);
  EXPECT_EQ(text_leaving(NATIVE(Kelpbox_1Experiment_1paddle_1banks), empty, proxy), text);
  EXPECT_EQ(text_leaving(NATIVE(Kelpbox_1Experiment_1paddle_1bank_1size), empty, proxy, 0), text);
  EXPECT_EQ(
      text_leaving(NATIVE(Kelpbox_1Experiment_1paddle_1bank_1info), empty, proxy, 0, set, proxy),
      text);
  EXPECT_EQ(text_leaving(NATIVE(Kelpbox_1Experiment_1paddle_1info), empty, proxy, 0, 0, set, proxy),
            text);
  EXPECT_EQ(text_leaving(NATIVE(Kelpbox_1Experiment_1add_1definition), empty, proxy, "run"), text);
}

}  // namespace
