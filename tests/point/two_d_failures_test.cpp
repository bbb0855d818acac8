// Which points are refused, in which order, and what a refusal leaves unchanged.
#include <gtest/gtest.h>
#include <malloc.h>

#include <limits>
#include <numbers>
#include <string>
#include <vector>

#include "point/two_d.h"
#include "support/own_process.h"
#include "support/test_run.h"
#include "support/thrown_item.h"

namespace {

using Synthesis::TwoD;
using Testing::BuiltRun;
using Testing::Given;
using Testing::nothing_thrown;
using Testing::point_params;
using Testing::rate_params;
using Testing::SiteText;
using Testing::thrown;

constexpr double pi = std::numbers::pi;
constexpr double nan = std::numeric_limits<double>::quiet_NaN();
constexpr double infinity = std::numeric_limits<double>::infinity();

std::string refusal(Synthesis::Definition& definition, Base::Params params) {
  return thrown([&] { definition.twod_build(params); });
}

// The four results of a build.
std::vector<std::vector<double>> results(Synthesis::Definition& definition) {
  return {definition.twod_data(0), definition.twod_data(1), definition.twod_data(2),
          definition.twod_data(3)};
}

struct WaveAtPoint : testing::Test {
  BuiltRun run{SiteText{}, {{8, {0.04, 0.0, 0.0}}}};
  Synthesis::Definition& definition = run.definition;
};

TEST_F(WaveAtPoint, LargeEarlierResultsDoNotHideWhatIsNeededBesideThem) {
  if (Testing::sanitized) GTEST_SKIP() << "a sanitizer needs more addresses than the limit leaves";
  EXPECT_TRUE(Testing::good_alone([&] {
    // 64 MB of results, more than the later build needs in all.
    Base::Params params = point_params((1 << 22) / 10.0, 1.0, 1.0);
    definition.twod_build(params);
    malloc_trim(0);
    // Less than the 12 MB of the later surface and directions.
    Testing::leave_room(8e6);
    return refusal(definition, point_params((1 << 20) / 10.0, 1.0, 1.0))
               .starts_with(
                   "rate::104858 Hz gives 1048576 samples at the point, which need 0.01 ") &&
           definition.twod_data(TwoD::time).size() == 1 << 22;
  }));
}

TEST_F(WaveAtPoint, UnknownDataIsRefused) {
  for (const int type : {4, -1, 1000}) {
    EXPECT_EQ(thrown([&] { definition.twod_data(type); }), "Unknown option ot twod_data");
  }
}

TEST_F(WaveAtPoint, ParametersAreReadInOrder) {
  Base::Params params;
  const auto wants = [&](const std::string& text, const char* name, double value,
                         const char* units) {
    EXPECT_EQ(refusal(definition, params), text);
    params.insert(name, value, units);
  };
  wants("rate::Not found", "rate", 20.0, "Hz");
  wants("x::Not found", "x", 50.0, "m");
  wants("y::Not found", "y", 0.0, "m");
  // The point is checked before the sectors.
  EXPECT_EQ(refusal(definition, params), "Value x=50 is outside dimensions of tank");
  params.at("x").value = 1.0;
  wants("delta_angle::Not found", "delta_angle", 30.0, "deg");
  EXPECT_EQ(refusal(definition, params), nothing_thrown);
}

TEST_F(WaveAtPoint, ParametersOfTheWrongKindAreRefused) {
  for (const char* name : {"rate", "x", "y", "delta_angle"}) {
    Base::Params params = point_params(20.0, 1.0, 0.0);
    params.at(name) = Base::Quantity(1.0, Base::resolve_units("s"), {});
    EXPECT_EQ(refusal(definition, params), std::string(name) + "::not convertable");
  }
}

TEST_F(WaveAtPoint, ADefinitionThatWasNotSetIsRefusedFirst) {
  Synthesis::Definition unset("unset", run.site.context());
  EXPECT_EQ(refusal(unset, {}), "Repeat time zero or less");
}

TEST_F(WaveAtPoint, ARateWithoutAUsableNumberOfSamplesIsRefused) {
  const auto text = [](const std::string& rate) {
    return "rate::" + rate + " Hz gives no usable number of samples in a repeat time of 10 s";
  };
  Base::Params params;
  EXPECT_EQ(refusal(definition, point_params(nan, 0, 0)), text("nan"));
  EXPECT_EQ(refusal(definition, point_params(infinity, 0, 0)), text("inf"));
  EXPECT_EQ(refusal(definition, point_params(-20, 0, 0)), text("-20"));
  EXPECT_EQ(refusal(definition, point_params(1e300, 0, 0)), text("1e+300"));
  EXPECT_EQ(refusal(definition, point_params(2e7, 0, 0)), text("2e+07"));
  // The refused rate is not written back.
  params = point_params(-20, 0, 0);
  EXPECT_EQ(thrown([&] { definition.twod_build(params); }), text("-20"));
  EXPECT_EQ(params.get("rate", "Hz"), -20.0);
  EXPECT_EQ(params.comment_size(), 0u);
}

TEST_F(WaveAtPoint, TooNarrowSectorsAreRefused) {
  const std::string text = "Value of delta_angle too small";
  for (const double width : {1e-6, 1e-7, 0.0, -1.0, -infinity}) {
    EXPECT_EQ(refusal(definition, point_params(20, 0, 0, width)), text) << width;
  }
  EXPECT_EQ(refusal(definition, point_params(20, 0, 0, 1.01e-6)), nothing_thrown);
  EXPECT_EQ(definition.twod_data(TwoD::direction).size(), 6220976u);  // 2 pi / 1.01e-6, rounded
  EXPECT_EQ(refusal(definition, point_params(20, 0, 0, nan)),
            "delta_angle::nan rad gives no usable number of direction sectors");
}

TEST_F(WaveAtPoint, ADirectionWithoutASectorIsRefused) {
  const std::string text = "invalid vector<T> subscript";
  // A sector of more than two circles leaves no sector at all.
  EXPECT_EQ(refusal(definition, point_params(20, 0, 0, 4 * pi)), nothing_thrown);
  EXPECT_EQ(refusal(definition, point_params(20, 0, 0, 4.01 * pi)), text);
  EXPECT_EQ(refusal(definition, point_params(20, 0, 0, infinity)), text);
  // Without harmonics no sector is missed.
  EXPECT_EQ(refusal(definition, point_params(0.1, 0, 0, 4.01 * pi)), nothing_thrown);
  EXPECT_TRUE(definition.twod_data(TwoD::direction).empty());
  // A direction half a circle from the middle of the only sector belongs to the next one.
  BuiltRun back(SiteText{}, {{8, {0.04, pi, 0.0}}});
  EXPECT_EQ(refusal(back.definition, point_params(20, 0, 0, 2 * pi)), text);
}

TEST_F(WaveAtPoint, ARefusedPointChangesNothing) {
  Base::Params params = point_params(20.0, 1.0, 0.0);
  definition.twod_build(params);
  const auto before = results(definition);
  EXPECT_EQ(refusal(definition, point_params(40.0, 50.0, 0.0)),
            "Value x=50 is outside dimensions of tank");
  EXPECT_EQ(refusal(definition, rate_params(40.0)), "x::Not found");
  EXPECT_EQ(refusal(definition, point_params(nan, 1.0, 0.0)).substr(0, 6), "rate::");
  EXPECT_EQ(results(definition), before);
}

TEST_F(WaveAtPoint, RefusedSectorsKeepTheOldOnesWithANewRecord) {
  Base::Params params = point_params(20.0, 1.0, 0.0);
  definition.twod_build(params);
  const auto before = results(definition);
  params = point_params(40.04, 1.0, 0.0, 1e-7);
  EXPECT_EQ(thrown([&] { definition.twod_build(params); }), "Value of delta_angle too small");
  EXPECT_EQ(params.get("rate", "Hz"), 40.0);
  EXPECT_EQ(params.get("delta_angle", "rad"), 1e-7);
  EXPECT_EQ(definition.twod_data(TwoD::time).size(), 400u);
  EXPECT_EQ(definition.twod_data(TwoD::spectrum).size(), 201u);
  EXPECT_EQ(definition.twod_data(TwoD::variance).size(), 201u);
  EXPECT_EQ(definition.twod_data(TwoD::direction), before[TwoD::direction]);
}

TEST_F(WaveAtPoint, ADirectionWithoutASectorLeavesTheSharesUnscaled) {
  BuiltRun mixed(SiteText{}, {{6, {0.02, 0.0, 0.0}}, {8, {0.04, pi, 0.0}}});
  Base::Params params = point_params(20.0, 0.0, 0.0, 0.5);
  mixed.definition.twod_build(params);
  params = point_params(20.0, 0.0, 0.0, 2 * pi);
  EXPECT_EQ(refusal(mixed.definition, params), "invalid vector<T> subscript");
  const std::vector<double>& shares = mixed.definition.twod_data(TwoD::direction);
  ASSERT_EQ(shares.size(), 1u);
  EXPECT_NEAR(shares[0], 0.02 * 0.02 / 2 * 10, 1e-15);
}

TEST_F(WaveAtPoint, ASiteWithoutATankIsRefusedAfterThePoint) {
  Testing::Site site(SiteText{}, false);
  Synthesis::Definition unready("unready", site.context());
  Testing::set(unready, Testing::run_params(10.0));
  EXPECT_EQ(refusal(unready, rate_params(20.0)), "x::Not found");
  Base::Params params = point_params(20.0, 0.0, 0.0);
  EXPECT_EQ(Testing::thrown_item([&] { unready.twod_build(params); }),
            "item: General: context::Error::Attempting to access TankConfig when not made ready");
}

TEST_F(WaveAtPoint, FrontsOfAnEarlierRepeatTimeAreRefused) {
  // A new repeat time needs another run_build.
  BuiltRun other(SiteText{}, {{20, {0.04, 0.0, 0.0}}});
  Testing::set(other.definition, Testing::run_params(5.0));
  EXPECT_EQ(refusal(other.definition, point_params(20.0, 1.0, 0.0)), "Harmonic out of range");
}

}  // namespace
