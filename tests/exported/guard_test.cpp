<<<<<<< HEAD
// The guard inside the facades' top-level operations.
#include "facade/guard.h"

#include <new>
#include <stdexcept>

#include "facade/facade.h"
=======
// Failures before a site has been read, as a host sees them.
>>>>>>> d865be1 (Test the facades without a JDK)
#include "fixture.h"

namespace {

<<<<<<< HEAD
using Testing::HostTest;

class Guard : public HostTest {};
=======
class BeforeInitialise : public HostTest {};
>>>>>>> d865be1 (Test the facades without a JDK)

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

<<<<<<< HEAD
// A component whose evaluation throws what the test wants.
template <typename Thrower>
class Throwing : public Synthesis::Component {
 public:
  explicit Throwing(Thrower thrower) : Component("Throwing"), thrower_(thrower) {}

 protected:
  void on_query(Base::Params&) override {}
  void on_set(Base::Params&, Base::Params&) override {}
  void on_evaluate(const Base::Params&, Maths::FrontSet&, const Synthesis::RunContext&) override {
    thrower_();
  }

 private:
  Thrower thrower_;
};

class OpenExperiment : public Facade {
 public:
  using Experiment::attach;
};

class RunGuard : public HostTest {
 protected:
  template <typename Thrower>
  Thrown thrown_by_build(Thrower thrower) {
    OpenExperiment experiment;
    const jlong self = reinterpret_cast<jlong>(static_cast<Facade*>(&experiment));
    initialise(self, TEST_ROOT "/exported/data/basin.txt");
    const jlong run = host.call(NATIVE(Kelpbox_1Experiment_1add_1definition), self, proxy, "run");
    const jlong group =
        host.call(NATIVE(Kelpbox_1Experiment_1add_1specification), self, proxy, run);
    const jlong wave = experiment.attach(static_cast<std::uint32_t>(group),
                                         std::make_unique<Throwing<Thrower>>(thrower));
    const jlong times = params({{"repeat", 10, "s"}});
    insert_enum(times, "dalrymple", "False", "Bool");
    insert_enum(times, "wave_merge", "Null", "WaveMerge");
    host.call(NATIVE(Kelpbox_1Experiment_1set_1_1SWIG_11), self, proxy, run, times, proxy);
    const jlong place = params({{"x", 0, "m"}, {"y", 0, "m"}, {"t", 0, "s"}});
    host.call(NATIVE(Kelpbox_1Experiment_1set_1_1SWIG_11), self, proxy, group, place, proxy);
    host.call(NATIVE(Kelpbox_1Experiment_1set_1_1SWIG_11), self, proxy, wave, params(), proxy);
    return thrown_by(NATIVE(Kelpbox_1Experiment_1run_1build), self, proxy, run);
  }
};

TEST_F(RunGuard, ExhaustedMemoryArrivesWithThePrefix) {
  EXPECT_EQ(thrown_by_build([] { throw std::bad_alloc(); }),
            domain(std::string("Uncaught Exception in Run Build: ") + std::bad_alloc().what()));
}

TEST_F(RunGuard, ALogItemArrivesWithThePrefix) {
  EXPECT_EQ(thrown_by_build([] { throw log_item(); }),
            domain("Uncaught Exception in Run Build: depth is 12"));
}

TEST_F(RunGuard, AStringArrivesAsItIs) {
  EXPECT_EQ(thrown_by_build([] { throw std::string("Wave number out of range"); }),
            domain("Wave number out of range"));
}

TEST_F(RunGuard, APlainTextIsMasked) {
  EXPECT_EQ(thrown_by_build([] { throw "Object not built"; }),
            domain("Uncaught Exception in Run Build"));
}

=======
>>>>>>> d865be1 (Test the facades without a JDK)
}  // namespace
