#include "base/params.h"

#include <gtest/gtest.h>

#include <bit>
#include <cmath>
#include <numbers>
#include <sstream>
#include <string>
#include <vector>

#include "base/enumerations.h"
#include "support/output.h"
#include "support/thrown.h"

namespace {

using Base::Param;
using Base::Params;
using Base::Quantity;
using Base::resolve_units;
using Base::ValueState;
using Testing::printed;
using Testing::thrown;
namespace EnumType = Base::EnumType;

std::vector<std::string> names(const std::vector<Param>& list) {
  std::vector<std::string> result;
  for (const Param& param : list) {
    result.push_back(param.name());
  }
  return result;
}

TEST(Param, DefaultIsEmpty) {
  const Param param;
  EXPECT_EQ(param.name(), "");
  EXPECT_EQ(param.value(), 0.0);
  EXPECT_FALSE(param.is_enum());
  EXPECT_EQ(param.units(), "Error");
}

TEST(Param, ReadsTheStoredValue) {
  const Param param("depth", Quantity(12.0, resolve_units("cm"), Base::InvalidState));
  EXPECT_EQ(param.name(), "depth");
  EXPECT_EQ(param.value(), 12.0);
  EXPECT_EQ(param.units(), "cm");
  const std::string message = "Trying to convert to Enum from non Enum type";
  EXPECT_EQ(thrown([&] { param.enum_type(); }), message);
  EXPECT_EQ(thrown([&] { param.enum_value(); }), message);
}

TEST(Param, ReportsTheTypeAndMemberOfAnEnumeration) {
  const Param param("window", Quantity(Base::make_enum("Window", "Barlett")));
  EXPECT_TRUE(param.is_enum());
  EXPECT_EQ(param.value(), 1.0);
  EXPECT_EQ(param.enum_type(), "Window");
  EXPECT_EQ(param.enum_value(), "Barlett");
  const Param declared("ramp", Quantity(Base::enum_of_type("Ramp")));
  EXPECT_EQ(declared.enum_type(), "Ramp");
  EXPECT_EQ(declared.enum_value(), "Null");
}

TEST(Param, AnUnknownMemberIsReported) {
  const Param param("window", Quantity(std::nan(""), Base::Units{1, Base::ENUM_MARKER}));
  EXPECT_EQ(thrown([&] { param.enum_value(); }), "Value \"4294967295\" out of range in enum");
}

TEST(Param, ConvertsBetweenNamedUnits) {
  EXPECT_DOUBLE_EQ(Param::convert("ft", "mm"), 304.8);
  EXPECT_EQ(thrown([] { Param::convert("ft", "s"); }), "Unable to convert from \"ft\" to \"s\"");
  EXPECT_EQ(thrown([] { Param::convert("ftt", "s"); }), "Unknown units - ftt");
  EXPECT_EQ(thrown([] { Param::convert("ft", "sss"); }), "Unknown units - sss");
  EXPECT_EQ(thrown([] { Param::convert("ftt", "sss"); }), "Unknown units - ftt");
}

TEST(Param, OffersAlternativeUnits) {
  EXPECT_EQ(Param::alternate("km"), (std::vector<std::string>{"km", "m", "cm", "mm", "ft", "in"}));
  EXPECT_EQ(thrown([] { Param::alternate("xm"); }), "Unknown units - xm");
}

TEST(Params, GetConvertsToTheRequestedUnits) {
  Params params;
  params.insert("height", 2.0, "ft");
  params.insert("rate", 3.0, "Hz");
  EXPECT_DOUBLE_EQ(params.get("height", "cm"), 60.96);
  EXPECT_DOUBLE_EQ(params.get("rate", "rad/s"), 6.0 * std::numbers::pi);
  EXPECT_EQ(thrown([&] { params.get("height", "s"); }), "Unable to convert from \"ft\" to \"s\"");
  EXPECT_EQ(thrown([&] { params.get("height", "xm"); }), "Unknown units - xm");
  EXPECT_EQ(thrown([&] { params.get("depth", "xm"); }), "depth::Not found");
}

TEST(Params, GetEnumReadsTheMember) {
  Params params;
  params.insert("window", "Hamming", "Window");
  params.insert("height", 1.0, "m");
  params.declare_enum("ramp", EnumType::Ramp);
  EXPECT_EQ(params.get_enum("window", "Window"), 6u);
  EXPECT_EQ(thrown([&] { params.get_enum("windows", "Nothing"); }), "windows::Not found");
  EXPECT_EQ(thrown([&] { params.get_enum("height", "Nothing"); }), "Enum type::Nothing::Not found");
  EXPECT_EQ(thrown([&] { params.get_enum("height", "Window"); }), "Not an enum");
  EXPECT_EQ(thrown([&] { params.get_enum("ramp", "Ramp"); }), "Invalid value");
  EXPECT_EQ(thrown([&] { params.get_enum("window", "Ramp"); }), "Accessing enum of wrong type");
}

TEST(Params, EveryMemberIsReadBackByName) {
  Params params;
  const std::vector<std::string> members = {"NoSides", "PlusSide", "MinusSide", "BothSides",
                                            "TwoDimensional"};
  for (std::uint32_t i = 0; i < members.size(); ++i) {
    params.insert(members[i], members[i], "Geometry");
    EXPECT_EQ(params.get_enum(members[i], "Geometry"), i);
  }
  for (const Param& param : params.param_list()) {
    EXPECT_EQ(param.enum_type(), "Geometry");
    EXPECT_EQ(param.enum_value(), param.name());
  }
}

TEST(Params, InsertedEntriesAreValid) {
  Params params;
  params.insert("a", 1.5, "cm");
  params.insert("b", "Sine", "Ramp");
  params.insert("c", 2.5, resolve_units("kHz"));
  EXPECT_EQ(params.at("a").units, resolve_units("cm"));
  EXPECT_EQ(params.at("a").value, 1.5);
  EXPECT_EQ(params.at("c").units, resolve_units("kHz"));
  for (const char* name : {"a", "b", "c"}) {
    EXPECT_EQ(params.at(name).state, (ValueState{0, 1})) << name;
  }
}

TEST(Params, ADuplicateIsReportedBeforeOtherErrors) {
  Params params;
  params.insert("x", 1.0, "m");
  const std::string message = "\"x\"::Duplicate parameter:";
  EXPECT_EQ(thrown([&] { params.insert("x", 1.0, "m"); }), message);
  EXPECT_EQ(thrown([&] { params.insert("x", 2.0, "no units"); }), message);
  EXPECT_EQ(thrown([&] { params.insert("x", "no member", "no type"); }), message);
  EXPECT_EQ(thrown([&] { params.insert("x", 2.0, resolve_units("m")); }), message);
  EXPECT_EQ(params.get("x", "m"), 1.0);
  EXPECT_EQ(params.entries().size(), 1u);
}

TEST(Params, AFailedInsertAddsNothing) {
  Params params;
  EXPECT_EQ(thrown([&] { params.insert("x", 1.0, "xm"); }), "Unknown units - xm");
  EXPECT_EQ(thrown([&] { params.insert("x", "Sine", "Rampe"); }), "Enum type::Rampe::Not found");
  EXPECT_EQ(thrown([&] { params.insert("x", "Sinus", "Ramp"); }),
            "Enum type::Ramp::Sinus::Not found");
  EXPECT_FALSE(params.contains("x"));
  EXPECT_TRUE(params.entries().empty());
}

TEST(Params, NamesAreCaseSensitive) {
  Params params;
  params.insert("Rate", 1.0, "Hz");
  params.insert("rate", 2.0, "Hz");
  EXPECT_EQ(params.get("Rate", "Hz"), 1.0);
  EXPECT_EQ(params.get("rate", "Hz"), 2.0);
  EXPECT_EQ(thrown([&] { params.get("RATE", "Hz"); }), "RATE::Not found");
}

TEST(Params, TheListIsInByteOrderOfNames) {
  Params params;
  for (const char* name : {"alpha", "Zeta", "alp", "alpha2", "_x", "\xc3\xa9"}) {
    params.insert(name, 1.0, "m");
  }
  EXPECT_EQ(names(params.param_list()),
            (std::vector<std::string>{"Zeta", "_x", "alp", "alpha", "alpha2", "\xc3\xa9"}));
}

TEST(Params, TheListIsASnapshot) {
  Params params;
  params.insert("a", 1.0, "m");
  const std::vector<Param>& list = params.param_list();
  EXPECT_EQ(names(list), (std::vector<std::string>{"a"}));
  params.insert("b", 1.0, "m");
  EXPECT_EQ(list.size(), 1u);
  EXPECT_EQ(&params.param_list(), &list);
  EXPECT_EQ(list.size(), 2u);
  params.clear();
  EXPECT_EQ(list.size(), 2u);
  EXPECT_EQ(params.param_list().size(), 0u);
}

TEST(Params, ClearEmptiesEntriesAndComments) {
  Params params;
  params.insert("a", 1.0, "m");
  params.add_comment(Base::Severity::error, "x");
  params.clear();
  EXPECT_TRUE(params.entries().empty());
  EXPECT_EQ(params.comment_size(), 0u);
  params.insert("a", 2.0, "m");
  EXPECT_EQ(params.get("a", "m"), 2.0);
}

TEST(Params, CommentsCarryTheirSeverity) {
  Params params;
  params.add_comment(0, "one");
  params.add_comment(1, "two");
  params.add_comment(2, "three");
  params.add_comment(3, "four");
  ASSERT_EQ(params.comment_size(), 4u);
  EXPECT_EQ(params.comment(0), "Error::one");
  EXPECT_EQ(params.comment(1), "Warning::two");
  EXPECT_EQ(params.comment(2), "Detail::three");
  EXPECT_EQ(params.comment(3), "four");
  EXPECT_EQ(thrown([&] { params.comment(4); }), "Comment 4 out of range");
}

TEST(Params, CopiesIncludeEntriesAndComments) {
  Params params;
  params.insert("a", 1.0, "m");
  params.declare("b", resolve_units("s"));
  params.add_comment(0, "one");
  Params copy = params;
  params.clear();
  EXPECT_EQ(copy.get("a", "m"), 1.0);
  EXPECT_EQ(std::bit_cast<std::uint64_t>(copy.at("b").value), Base::UNSET_REAL_BITS);
  EXPECT_EQ(copy.comment(0), "Error::one");
}

Params printable() {
  Params params;
  params.insert("window", "Hamming", "Window");
  params.insert("depth", 1.5, "m");
  params.declare("rate", resolve_units("Hz"));
  params.add_comment(Base::Severity::warning, "Poor match");
  params.add_comment(7, "bare");
  return params;
}

TEST(Params, PrintsAPrefixBeforeEntriesOnly) {
  std::ostringstream out;
  printable().print(out, "  ");
  EXPECT_EQ(out.str(),
            "  depth = 1.5m\n"
            "  rate = nanHz[I]\n"
            "  window = Window::Hamming\n"
            "Warning::Poor match\n"
            "bare\n");
}

TEST(Params, PrintsToStandardOutput) {
  EXPECT_EQ(printed([] { printable().print(); }),
            "depth = 1.5m\n"
            "rate = nanHz[I]\n"
            "window = Window::Hamming\n"
            "Warning::Poor match\n"
            "bare\n");
}

// Keeps the output so far at each flush.
class FlushLog : public std::stringbuf {
 public:
  std::vector<std::string> seen;

 protected:
  int sync() override {
    seen.push_back(str());
    return 0;
  }
};

TEST(Params, PrintFlushesEachLine) {
  FlushLog log;
  std::ostream out(&log);
  printable().print(out, "");
  ASSERT_EQ(log.seen.size(), 5u);
  EXPECT_EQ(log.seen[0], "depth = 1.5m\n");
  EXPECT_EQ(log.seen[1], "depth = 1.5m\nrate = nanHz[I]\n");
  EXPECT_EQ(log.seen[4], log.str());
}

}  // namespace
