// Every allocation of an experiment fails: the call throws, and succeeds when it is repeated.
#include <functional>
#include <set>
#include <string>

#include "support/every_failure.h"
#include "whole_road.h"

namespace {

using Testing::every_failure;
using Testing::Failures;
using Testing::WholeRoad;

class ExperimentMemory : public testing::Test {
 protected:
  // Makes objects on which those steps are done.
  auto after(std::function<void(WholeRoad&)> steps, const std::string& site = "") {
    return [this, steps, site] {
      auto road = std::make_unique<WholeRoad>();
      road->open(site.empty() ? tank.path : site);
      steps(*road);
      return road;
    };
  }
  auto after_run() {
    return after([](WholeRoad& road) {
      road.add_items();
      road.set_items();
      road.build_run();
    });
  }
  // A guarded operation that one allocation fails has its fixed message.
  static void expect_fixed_message(const Failures& failures, const std::string& message) {
    EXPECT_EQ(failures.messages, std::set<std::string>{message + ": std::bad_alloc"});
    note(failures);
  }
  static void note(const Failures& failures) {
    RecordProperty("allocations", static_cast<int>(failures.allocations));
    EXPECT_GT(failures.allocations, failures.survived);
    EXPECT_EQ(failures.abandoned, 0);
  }

  Testing::SmallTank tank;
  // Of five files, with tunable values.
  const std::string basin = TEST_ROOT "/../examples/basin.site";
};

TEST_F(ExperimentMemory, ASiteIsRead) {
  const Failures failures = every_failure(
      [] { return std::make_unique<WholeRoad>(); }, [&](WholeRoad& road) { road.open(basin); },
      [](WholeRoad& road) { return road.experiment->context_string(); });
  note(failures);
}

TEST_F(ExperimentMemory, ASiteIsShown) {
  Base::Params constants, values, delta, bank, paddle;
  const Failures failures = every_failure(
      after([](WholeRoad&) {}),
      [&](WholeRoad& road) {
        for (Base::Params* params : {&constants, &values, &delta, &bank, &paddle}) params->clear();
        Kelpbox::Experiment& experiment = *road.experiment;
        experiment.get_consts(constants);
        experiment.query(values);
        delta.insert("delta_x", 1.0, "m");
        experiment.profile(delta);
        experiment.paddle_bank_info(1, bank);
        experiment.paddle_info(0, 2, paddle);
      },
      [&](WholeRoad& road) {
        return road.experiment->context_name() +
               std::to_string(constants.entries().size() + values.entries().size()) +
               std::to_string(bank.entries().size() + paddle.entries().size());
      });
  note(failures);
}

TEST_F(ExperimentMemory, ASiteIsSet) {
  Base::Params delta;
  delta.insert("delta_x", 0.5, "m");
  const Failures failures = every_failure(
      after([](WholeRoad&) {}, basin),
      [&](WholeRoad& road) {
        Base::Params values;
        road.experiment->query(values);
        road.experiment->set(values);
      },
      [&](WholeRoad& road) { return road.experiment->profile(delta); });
  note(failures);
}

TEST_F(ExperimentMemory, ATreeIsMade) {
  const Failures failures = every_failure(
      after([](WholeRoad&) {}), [](WholeRoad& road) { road.add_items(); },
      [](WholeRoad& road) {
        road.set_items();
        road.build_run();
        return road.fronts();
      });
  note(failures);
}

TEST_F(ExperimentMemory, ItemsAreSet) {
  const Failures failures = every_failure(
      after([](WholeRoad& road) { road.add_items(); }), [](WholeRoad& road) { road.set_items(); },
      [](WholeRoad& road) {
        road.build_run();
        return road.fronts();
      });
  note(failures);
}

TEST_F(ExperimentMemory, ItemsAreQueriedAndRemoved) {
  const Failures failures = every_failure(
      after([](WholeRoad& road) {
        road.add_items();
        road.set_items();
      }),
      [](WholeRoad& road) {
        Base::Params out;
        for (const std::uint32_t wave : road.waves) road.experiment->query(wave, out);
        for (const std::uint32_t change : road.modifiers) road.experiment->query(change, out);
        while (!road.waves.empty()) {
          if (road.waves.size() > 1) road.experiment->remove(road.waves.back());
          road.waves.pop_back();
        }
      },
      [](WholeRoad& road) {
        road.build_run();
        return road.fronts();
      });
  note(failures);
}

TEST_F(ExperimentMemory, ARunIsBuilt) {
  const Failures failures = every_failure(
      after([](WholeRoad& road) {
        road.add_items();
        road.set_items();
      }),
      [](WholeRoad& road) { road.build_run(); }, [](WholeRoad& road) { return road.fronts(); });
  expect_fixed_message(failures, "Uncaught Exception in Run Build");
}

TEST_F(ExperimentMemory, FrontsAndMessagesAreRead) {
  const Failures failures = every_failure(
      after_run(),
      [](WholeRoad& road) {
        road.fronts();
        road.experiment->fronts(road.run, 0U);
      },
      [](WholeRoad& road) { return road.fronts(); });
  note(failures);
}

TEST_F(ExperimentMemory, DriveSignalsAreBuilt) {
  const Failures failures = every_failure(
      after_run(),
      [](WholeRoad& road) {
        road.build_drive();
        Base::Params statistics;
        road.experiment->paddle_motion_stats(road.run, 0, statistics);
      },
      [](WholeRoad& road) { return road.drive(); });
  note(failures);
}

TEST_F(ExperimentMemory, ThePointIsBuilt) {
  const Failures failures = every_failure(
      after_run(), [](WholeRoad& road) { road.build_point(); },
      [](WholeRoad& road) { return road.point(); });
  note(failures);
}

TEST_F(ExperimentMemory, AnAnimationIsBuilt) {
  const Failures failures = every_failure(
      after_run(), [](WholeRoad& road) { road.build_animation(); },
      [](WholeRoad& road) { return road.frames(); });
  expect_fixed_message(failures, "Uncaught Exception in Animate Build");
}

TEST_F(ExperimentMemory, AnAnimationIsBuiltByColumns) {
  const Failures laid_out = every_failure(
      after_run(), [](WholeRoad& road) { road.lay_out(); },
      [](WholeRoad& road) {
        road.build_columns();
        return road.frames();
      });
  expect_fixed_message(laid_out, "Uncaught Exception in Animate Init");
  const Failures built = every_failure(
      [this] {
        auto road = after_run()();
        road->lay_out();
        return road;
      },
      [](WholeRoad& road) { road.build_columns(); }, [](WholeRoad& road) { return road.frames(); });
  expect_fixed_message(built, "Uncaught Exception in Animate Build slice");
}

}  // namespace
