// Parameters and labelled vectors through handles.
#include <numbers>

#include "fixture.h"
#include "support/output.h"

namespace {

using Testing::HostTest;

class ParamFace : public HostTest {
 protected:
  // The entry at that place in the list of a set.
  jlong listed(jlong set, jint place) {
    const jlong list = host.call(NATIVE(Kelpbox_1Params_1param_1list), set, proxy);
    return host.call(NATIVE(Kelpbox_1StdVectorParam_1get), list, proxy, place);
  }
};

TEST_F(ParamFace, ADefaultParamHasNoNameAndNoValue) {
  const jlong param = own(host.call(NATIVE(new_1Kelpbox_1Param)), NATIVE(delete_1Kelpbox_1Param));
  EXPECT_EQ(string_from(NATIVE(Kelpbox_1Param_1name), param, proxy), "");
  EXPECT_EQ(host.call(NATIVE(Kelpbox_1Param_1value), param, proxy), 0.0);
  EXPECT_EQ(host.call(NATIVE(Kelpbox_1Param_1is_1enum), param, proxy), JNI_FALSE);
}

TEST_F(ParamFace, ANumberIsReadInTheUnitsItWasGivenIn) {
  const jlong param = listed(params({{"depth", 120, "cm"}}), 0);
  EXPECT_EQ(string_from(NATIVE(Kelpbox_1Param_1name), param, proxy), "depth");
  EXPECT_EQ(host.call(NATIVE(Kelpbox_1Param_1value), param, proxy), 120.0);
  EXPECT_EQ(string_from(NATIVE(Kelpbox_1Param_1units), param, proxy), "cm");
  EXPECT_EQ(host.call(NATIVE(Kelpbox_1Param_1is_1enum), param, proxy), JNI_FALSE);
  EXPECT_EQ(thrown_by(NATIVE(Kelpbox_1Param_1enum_1type), param, proxy),
            domain("Trying to convert to Enum from non Enum type"));
  EXPECT_EQ(thrown_by(NATIVE(Kelpbox_1Param_1enum_1value), param, proxy),
            domain("Trying to convert to Enum from non Enum type"));
}

TEST_F(ParamFace, AnEnumerationIsReadByName) {
  const jlong set = params();
  insert_enum(set, "shape", "Hamming", "Window");
  const jlong param = listed(set, 0);
  EXPECT_EQ(host.call(NATIVE(Kelpbox_1Param_1is_1enum), param, proxy), JNI_TRUE);
  EXPECT_EQ(string_from(NATIVE(Kelpbox_1Param_1enum_1type), param, proxy), "Window");
  EXPECT_EQ(string_from(NATIVE(Kelpbox_1Param_1enum_1value), param, proxy), "Hamming");
  EXPECT_EQ(host.call(NATIVE(Kelpbox_1Param_1value), param, proxy), 6.0);
  EXPECT_EQ(host.call(NATIVE(Kelpbox_1Params_1get_1enum), set, proxy, "shape", "Window"), 6);
}

TEST_F(ParamFace, ConvertGivesTheFactor) {
  EXPECT_DOUBLE_EQ(host.call(NATIVE(Kelpbox_1Param_1convert), "ft", "m"), 0.3048);
  EXPECT_DOUBLE_EQ(host.call(NATIVE(Kelpbox_1Param_1convert), "Hz", "rad/s"),
                   2.0 * std::numbers::pi);
  EXPECT_EQ(thrown_by(NATIVE(Kelpbox_1Param_1convert), "ft", "s"),
            domain("Unable to convert from \"ft\" to \"s\""));
  EXPECT_EQ(thrown_by(NATIVE(Kelpbox_1Param_1convert), "ft", "furlong"),
            domain("Unknown units - furlong"));
}

TEST_F(ParamFace, AlternateUnitsConvertToTheGivenOnes) {
  const jlong units = own(host.call(NATIVE(Kelpbox_1Param_1alternate), "m"),
                          NATIVE(delete_1Kelpbox_1StdVectorString));
  const jlong size = host.call(NATIVE(Kelpbox_1StdVectorString_1size), units, proxy);
  ASSERT_GT(size, 0);
  for (jint i = 0; i < size; ++i) {
    const std::string unit = string_from(NATIVE(Kelpbox_1StdVectorString_1get), units, proxy, i);
    EXPECT_GT(host.call(NATIVE(Kelpbox_1Param_1convert), unit, "m"), 0.0) << unit;
  }
  EXPECT_EQ(thrown_by(NATIVE(Kelpbox_1Param_1alternate), "furlong"),
            domain("Unknown units - furlong"));
}

TEST_F(ParamFace, GetConvertsAndReportsMissingNames) {
  const jlong set = params({{"depth", 2, "m"}});
  EXPECT_DOUBLE_EQ(value(set, "depth", "mm"), 2000.0);
  EXPECT_EQ(thrown_by(NATIVE(Kelpbox_1Params_1get), set, proxy, "width", "m"),
            domain("width::Not found"));
  EXPECT_EQ(thrown_by(NATIVE(Kelpbox_1Params_1get), set, proxy, "depth", "s"),
            domain("Unable to convert from \"m\" to \"s\""));
  EXPECT_EQ(thrown_by(NATIVE(Kelpbox_1Params_1get_1enum), set, proxy, "depth", "Window"),
            domain("Not an enum"));
}

TEST_F(ParamFace, ADuplicateIsRefused) {
  const jlong set = params({{"depth", 2, "m"}});
  EXPECT_EQ(
      thrown_by(NATIVE(Kelpbox_1Params_1insert_1_1SWIG_10), set, proxy, "depth", 3.0, "furlong"),
      domain("\"depth\"::Duplicate parameter:"));
  EXPECT_EQ(
      thrown_by(NATIVE(Kelpbox_1Params_1insert_1_1SWIG_11), set, proxy, "depth", "True", "Bool"),
      domain("\"depth\"::Duplicate parameter:"));
  EXPECT_EQ(value(set, "depth", "m"), 2.0);
}

TEST_F(ParamFace, UnknownNamesOfAnEnumerationAreRefused) {
  const jlong set = params();
  EXPECT_EQ(
      thrown_by(NATIVE(Kelpbox_1Params_1insert_1_1SWIG_11), set, proxy, "a", "Bartlett", "Window"),
      domain("Enum type::Window::Bartlett::Not found"));
  EXPECT_EQ(
      thrown_by(NATIVE(Kelpbox_1Params_1insert_1_1SWIG_11), set, proxy, "a", "Null", "window"),
      domain("Enum type::window::Not found"));
}

TEST_F(ParamFace, TheListIsASnapshotOwnedByTheSet) {
  const jlong set = params({{"alpha", 1, "m"}, {"Zeta", 2, "m"}});
  EXPECT_EQ(names(set), (std::vector<std::string>{"Zeta", "alpha"}));
  const jlong list = host.call(NATIVE(Kelpbox_1Params_1param_1list), set, proxy);
  host.call(NATIVE(Kelpbox_1Params_1clear), set, proxy);
  EXPECT_EQ(host.call(NATIVE(Kelpbox_1StdVectorParam_1size), list, proxy), 2);
  EXPECT_EQ(host.call(NATIVE(Kelpbox_1Params_1param_1list), set, proxy), list);
  EXPECT_EQ(host.call(NATIVE(Kelpbox_1StdVectorParam_1size), list, proxy), 0);
}

TEST_F(ParamFace, CommentsAreReadByIndexWithTheirSeverity) {
  const jlong experiment = basin();
  const jlong run =
      host.call(NATIVE(Kelpbox_1Experiment_1add_1definition), experiment, proxy, "run");
  const jlong group =
      host.call(NATIVE(Kelpbox_1Experiment_1add_1specification), experiment, proxy, run);
  const auto add_fronts = NATIVE(Kelpbox_1Experiment_1add_1fronts);
  const auto query = NATIVE(Kelpbox_1Experiment_1query_1_1SWIG_11);
  // Each set of fronts comments on its repeat time.
  const jlong set = params();
  for (const double step : {0.25, 0.5}) {
    const jlong list = own(host.call(NATIVE(new_1Kelpbox_1StdVectorFront_1_1SWIG_10)),
                           NATIVE(delete_1Kelpbox_1StdVectorFront));
    for (const double f : {step, 2 * step}) {
      const jlong front = own(host.call(NATIVE(new_1Kelpbox_1Front_1_1SWIG_11), f, 0.1, 0.0, 0.0),
                              NATIVE(delete_1Kelpbox_1Front));
      host.call(NATIVE(Kelpbox_1StdVectorFront_1add), list, proxy, front, proxy);
    }
    const jlong fronts = host.call(add_fronts, experiment, proxy, group, list, proxy);
    host.call(query, experiment, proxy, fronts, set, proxy);
  }
  EXPECT_EQ(comments(set), (std::vector<std::string>{"Detail::Repeat time = 4s with error = 0%",
                                                     "Detail::Repeat time = 2s with error = 0%"}));
  host.call(NATIVE(Kelpbox_1Params_1clear), set, proxy);
  EXPECT_EQ(host.call(NATIVE(Kelpbox_1Params_1comment_1size), set, proxy), 0);
}

TEST_F(ParamFace, PrintGoesToTheStandardOutput) {
  const jlong set = params({{"depth", 1.5, "m"}});
  insert_enum(set, "shape", "Hamming", "Window");
  EXPECT_EQ(Testing::printed([&] { host.call(NATIVE(Kelpbox_1Params_1print), set, proxy); }),
            "depth = 1.5m\nshape = Window::Hamming\n");
}

TEST_F(ParamFace, DeletingNullDoesNothing) {
  host.call(NATIVE(delete_1Kelpbox_1Param), 0);
  host.call(NATIVE(delete_1Kelpbox_1Params), 0);
  host.call(NATIVE(delete_1Kelpbox_1Vector), 0);
  EXPECT_TRUE(host.log.empty());
}

class VectorFace : public HostTest {};

TEST_F(VectorFace, AVectorCopiesItsSamples) {
  const jlong data = doubles({1.5, -2.5, 3.5});
  const jlong vector = own(host.call(NATIVE(new_1Kelpbox_1Vector), "eta", "mm", data, proxy),
                           NATIVE(delete_1Kelpbox_1Vector));
  host.call(NATIVE(Kelpbox_1StdVectorDouble_1clear), data, proxy);
  EXPECT_EQ(host.call(NATIVE(Kelpbox_1Vector_1size), vector, proxy), 3);
  EXPECT_EQ(host.call(NATIVE(Kelpbox_1Vector_1getValue), vector, proxy, 0), 1.5);
  EXPECT_EQ(host.call(NATIVE(Kelpbox_1Vector_1getValue), vector, proxy, 2), 3.5);
}

TEST_F(VectorFace, UnknownUnitsAreRefused) {
  const jlong data = doubles({1.5});
  EXPECT_EQ(host.call(NATIVE(new_1Kelpbox_1Vector), "eta", "furlong", data, proxy), 0);
  EXPECT_EQ(host.take_thrown(), domain("Unknown units - furlong"));
}

}  // namespace
