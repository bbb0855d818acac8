// The guard inside the facades' top-level operations.
#include "facade/guard.h"

#include <memory>
#include <new>
#include <stdexcept>
#include <string>

#include "base/memory.h"
#include "facade/analysis.h"
#include "facade/experiment.h"
#include "flume.h"
#include "support/own_process.h"
#include "support/test_site.h"
#include "support/thrown.h"

using namespace Kelpbox;
using Base::operator""_MiB;
using Testing::thrown;

namespace {

template <LogItems items, typename Operation>
std::string converted(Operation operation) {
  return thrown([&] { guarded<items>("Fixed", operation); });
}

Script::LogItm log_item() {
  Script::LogItm item("General", Script::Level::error);
  item.add("depth is ").add(12u);
  return item;
}

TEST(Guard, AStringPassesUnchanged) {
  const auto operation = [] { throw std::string("a message"); };
  EXPECT_EQ(converted<LogItems::hidden>(operation), "a message");
  EXPECT_EQ(converted<LogItems::shown>(operation), "a message");
}

TEST(Guard, AStandardExceptionGetsThePrefix) {
  const auto operation = [] { throw std::runtime_error("the reason"); };
  EXPECT_EQ(converted<LogItems::hidden>(operation), "Fixed: the reason");
  EXPECT_EQ(converted<LogItems::shown>(operation), "Fixed: the reason");
}

// The reason of a failure may be the want of memory itself.
TEST(Guard, AReasonThatDoesNotFitIntoMemoryIsLeftOut) {
  if (Testing::sanitized) GTEST_SKIP() << "sanitizers end the process where memory ends";
  EXPECT_TRUE(Testing::good_alone([] {
    const std::runtime_error failure(std::string(64_MiB, 'x'));
    Testing::leave_room(16_MiB);
    return converted<LogItems::hidden>([&] { throw failure; }) == "Fixed";
  }));
}

TEST(Guard, ALogItemIsShownInOneFormAndHiddenInTheOther) {
  const auto operation = [] { throw log_item(); };
  EXPECT_EQ(converted<LogItems::hidden>(operation), "Fixed");
  EXPECT_EQ(converted<LogItems::shown>(operation), "Fixed: depth is 12");
}

TEST(Guard, AnythingElseBecomesTheFixedMessage) {
  EXPECT_EQ(converted<LogItems::hidden>([] { throw "Object not built"; }), "Fixed");
  EXPECT_EQ(converted<LogItems::shown>([] { throw "Object not built"; }), "Fixed");
  EXPECT_EQ(converted<LogItems::shown>([] { throw 42; }), "Fixed");
}

TEST(Guard, AResultIsReturned) {
  EXPECT_EQ(guarded("Fixed", [] { return 7; }), 7);
  EXPECT_EQ(guarded<LogItems::shown>("Fixed", [] { return std::string("x"); }), "x");
}

TEST(Guard, EachOperationOnTheSiteHasItsFixedMessageBeforeInitialise) {
  Experiment empty;
  Kelpbox::Analysis analysis(empty);
  Base::Params params;
  params.insert("delta_x", 1.0, "m");
  const std::string start = "Uncaught Exception in Experiment ";
  EXPECT_EQ(thrown([&] { empty.get_consts(params); }), start + "get consts");
  EXPECT_EQ(thrown([&] { empty.query(params); }), start + "Query");
  EXPECT_EQ(thrown([&] { empty.set(params); }), start + "set");
  EXPECT_EQ(thrown([&] { empty.profile(params); }), start + "profile");
  EXPECT_EQ(thrown([&] { analysis.set(params); }), start + "set");
}

TEST(Guard, UnguardedOperationsThrowTheCharacterPointerBeforeInitialise) {
  Experiment empty;
  Base::Params params;
  const std::string message = "plain: Object not built";
  EXPECT_EQ(thrown([&] { empty.context_name(); }), message);
  EXPECT_EQ(thrown([&] { empty.context_string(); }), message);
  EXPECT_EQ(thrown([&] { empty.paddle_banks(); }), message);
  EXPECT_EQ(thrown([&] { empty.paddle_bank_size(0); }), message);
  EXPECT_EQ(thrown([&] { empty.paddle_bank_info(0, params); }), message);
  EXPECT_EQ(thrown([&] { empty.paddle_info(0, 0, params); }), message);
  EXPECT_EQ(thrown([&] { empty.add_definition("run"); }), message);
}

// A component whose evaluation runs an operation of the test.
template <typename Operation>
class Throwing : public Synthesis::Component {
 public:
  explicit Throwing(Operation operation) : Component("Throwing"), operation_(operation) {}

 protected:
  void on_query(Base::Params&) override {}
  void on_set(Base::Params&, Base::Params&) override {}
  void on_evaluate(const Base::Params&, Maths::FrontSet&, const Synthesis::RunContext&) override {
    operation_();
  }

 private:
  Operation operation_;
};

struct OpenExperiment : Experiment {
  using Experiment::attach;
};

// What run_build throws if the evaluation of a component throws.
template <typename Operation>
std::string thrown_by_build(Operation operation) {
  OpenExperiment experiment;
  open_flume(experiment);
  const std::uint32_t run = experiment.add_definition("run");
  const std::uint32_t group = experiment.add_specification(run);
  const std::uint32_t wave =
      experiment.attach(group, std::make_unique<Throwing<Operation>>(operation));
  Base::Params times = Testing::run_params(10.0);
  Base::Params place = Testing::at(0.0, 0.0, 0.0);
  Base::Params none;
  experiment.set(run, times);
  experiment.set(group, place);
  experiment.set(wave, none);
  return thrown([&] { experiment.run_build(run); });
}

TEST(RunBuild, ReportsExhaustedMemoryWithThePrefix) {
  EXPECT_EQ(thrown_by_build([] { throw std::bad_alloc(); }),
            std::string("Uncaught Exception in Run Build: ") + std::bad_alloc().what());
}

TEST(RunBuild, ReportsALogItemWithThePrefix) {
  EXPECT_EQ(thrown_by_build([] { throw log_item(); }),
            "Uncaught Exception in Run Build: depth is 12");
}

TEST(RunBuild, ReportsAStringUnchanged) {
  EXPECT_EQ(thrown_by_build([] { throw std::string("Wave number out of range"); }),
            "Wave number out of range");
}

TEST(RunBuild, MasksACharacterPointer) {
  EXPECT_EQ(thrown_by_build([] { throw "Object not built"; }), "Uncaught Exception in Run Build");
}

}  // namespace
