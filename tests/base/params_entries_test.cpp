// How components use a set of parameters: looking up, declaring, merging and writing back.
#include <gtest/gtest.h>

#include <bit>
#include <cmath>
#include <string>
#include <vector>

#include "base/enumerations.h"
#include "base/params.h"
#include "support/thrown.h"

namespace {

using Base::Params;
using Base::Quantity;
using Base::resolve_units;
using Base::ValueState;
using Testing::thrown;
namespace Category = Base::Category;
namespace EnumType = Base::EnumType;

TEST(Params, EveryLookupReportsAnAbsentName) {
  Params params;
  const Params& constant = params;
  const std::string message = "x::Not found";
  EXPECT_EQ(thrown([&] { params.find("x"); }), message);
  EXPECT_EQ(thrown([&] { constant.find("x"); }), message);
  EXPECT_EQ(thrown([&] { params.at("x"); }), message);
  EXPECT_EQ(thrown([&] { constant.at("x"); }), message);
  EXPECT_EQ(thrown([&] { params.find_convertible("x", Category::length); }), message);
  EXPECT_EQ(thrown([&] { params.find_enum("x", EnumType::Bool); }), message);
  EXPECT_EQ(thrown([&] { params.get("x", "m"); }), message);
  EXPECT_EQ(thrown([&] { params.get_enum("x", "Bool"); }), message);
  EXPECT_EQ(thrown([&] { params.set("x", 1.0, Category::length); }), message);
  EXPECT_EQ(thrown([&] { params.set_checked("x", 1.0, Category::length, 0.1); }), message);
}

TEST(Params, FindConvertibleNeedsAnEntryOfTheCategory) {
  Params params;
  params.insert("rate", 1.0, "rad/s");
  params.insert("ran", "Default", "RanGen");
  EXPECT_EQ(params.find_convertible("rate", Category::frequency)->second.value, 1.0);
  EXPECT_EQ(thrown([&] { params.find_convertible("rate", Category::time); }),
            "rate::not convertable");
  // Type 3 equals the row of the inch.
  EXPECT_EQ(params.find_convertible("ran", Category::length)->first, "ran");
  EXPECT_EQ(thrown([&] { params.find_convertible("ran", Category::time); }),
            "ran::not convertable");
}

TEST(Params, FindEnumNeedsAnEntryOfTheType) {
  Params params;
  params.insert("ran", "Default", "RanGen");
  params.insert("rate", 1.0, "Hz");
  EXPECT_EQ(params.find_enum("ran", EnumType::RanGen)->first, "ran");
  EXPECT_EQ(thrown([&] { params.find_enum("ran", EnumType::Ramp); }), "ran::wrong enum type");
  EXPECT_EQ(thrown([&] { params.find_enum("rate", EnumType::Ramp); }), "rate::wrong enum type");
}

TEST(Params, ReadChecksTheCategoryAndTheState) {
  Params params;
  params.insert("depth", 50.0, "cm");
  params.insert("ran", "FullRandom", "RanGen");
  params.declare("width", resolve_units("m"));
  params.declare_enum("ramp", EnumType::Ramp);
  EXPECT_DOUBLE_EQ(params.read("depth", Category::length), 0.5);
  EXPECT_EQ(params.read_enum("ran", EnumType::RanGen), 1u);
  EXPECT_EQ(thrown([&] { params.read("x", Category::length); }), "x::Not found");
  EXPECT_EQ(thrown([&] { params.read("depth", Category::time); }), "depth::not convertable");
  EXPECT_EQ(thrown([&] { params.read("width", Category::length); }), "Invalid value");
  EXPECT_EQ(thrown([&] { params.read_enum("x", EnumType::Bool); }), "x::Not found");
  EXPECT_EQ(thrown([&] { params.read_enum("ran", EnumType::Bool); }), "ran::wrong enum type");
  EXPECT_EQ(thrown([&] { params.read_enum("ramp", EnumType::Ramp); }), "Invalid value");
}

TEST(Params, ADeclaredEntryIsUnset) {
  Params params;
  params.declare("depth", resolve_units("cm"));
  EXPECT_TRUE(std::isnan(params.get("depth", "m")));
  EXPECT_EQ(thrown([&] { params.at("depth").get(Category::length); }), "Invalid value");
  EXPECT_EQ(std::bit_cast<std::uint64_t>(params.at("depth").value), Base::UNSET_REAL_BITS);
  params.set("depth", 1.0, Category::length);
  EXPECT_EQ(params.at("depth").get(Category::length), 1.0);
}

TEST(Params, DeclareKeepsAnEntryOfTheSameCategory) {
  Params params;
  params.insert("depth", 3.0, "ft");
  params.insert("rate", 3.0, "Hz");
  params.declare("depth", resolve_units("m"));
  params.declare("rate", resolve_units("rad/s"));
  EXPECT_EQ(params.at("depth").units, resolve_units("ft"));
  EXPECT_EQ(params.at("depth").value, 3.0);
  EXPECT_EQ(params.at("depth").state, (ValueState{0, 1}));
  EXPECT_EQ(params.at("rate").units, resolve_units("Hz"));
  EXPECT_EQ(thrown([&] { params.declare("depth", resolve_units("s")); }),
            "Incompatible units for => depth");
  EXPECT_EQ(params.at("depth").value, 3.0);
}

TEST(Params, DeclareEnumKeepsAnEntryOfTheSameType) {
  Params params;
  params.declare_enum("ramp", EnumType::Ramp);
  const Quantity& ramp = params.at("ramp");
  EXPECT_EQ(ramp.units, (Base::Units{2, Base::ENUM_MARKER}));
  EXPECT_EQ(ramp.value, 0.0);
  EXPECT_EQ(ramp.state, Base::InvalidState);

  params.insert("bool", "True", "Bool");
  params.declare_enum("bool", EnumType::Bool);
  EXPECT_EQ(params.get_enum("bool", "Bool"), 1u);

  params.insert("number", 1.0, "m");
  EXPECT_EQ(thrown([&] { params.declare_enum("bool", EnumType::Ramp); }),
            "Incompatible enum types for => bool");
  EXPECT_EQ(thrown([&] { params.declare_enum("number", EnumType::Ramp); }), "Not an enum");
  EXPECT_EQ(thrown([&] { params.declare_enum("other", 10); }), "Type \"10\" out of range in enum");
  EXPECT_FALSE(params.contains("other"));
}

TEST(Params, MergeAddsACopyOfTheWholeQuantity) {
  Params host;
  host.insert("depth", 3.0, "ft");
  host.at("depth").state = {'*', 3};
  Params own;
  const auto& entry = *host.find("depth");
  EXPECT_EQ(&own.merge(entry), &entry.second);
  EXPECT_EQ(own.at("depth").units, resolve_units("ft"));
  EXPECT_EQ(own.at("depth").value, 3.0);
  EXPECT_EQ(own.at("depth").state, (ValueState{'*', 3}));
}

TEST(Params, MergeKeepsACompatibleEntry) {
  Params host;
  host.insert("depth", 3.0, "ft");
  host.insert("time", 3.0, "s");
  Params own;
  own.insert("depth", 1.0, "m");
  own.insert("time", 1.0, "Hz");
  const auto& entry = *host.find("depth");
  EXPECT_EQ(&own.merge(entry), &entry.second);
  EXPECT_EQ(own.at("depth").value, 1.0);
  EXPECT_EQ(thrown([&] { own.merge(*host.find("time")); }), "time::Incompatible types");
  EXPECT_EQ(own.at("time").value, 1.0);
}

TEST(Params, MergeComparesEnumerationTypesAsUnitRows) {
  Params host;
  host.insert("a", "Sine", "Ramp");  // row 2, a length
  host.insert("b", "True", "Bool");  // row 0, no category
  Params own;
  own.insert("a", "Default", "RanGen");  // row 3, a length
  own.insert("b", "Sine", "Ramp");
  own.merge(*host.find("a"));
  EXPECT_EQ(own.get_enum("a", "RanGen"), 0u);
  EXPECT_EQ(thrown([&] { own.merge(*host.find("b")); }), "b::Incompatible types");
  Params lengths;
  lengths.insert("a", 1.0, "m");
  lengths.merge(*host.find("a"));
  EXPECT_EQ(lengths.get("a", "m"), 1.0);
}

TEST(Params, SetKeepsTheUnitsOfTheEntry) {
  Params params;
  params.insert("depth", 7.0, "cm");
  const auto entry = params.set("depth", 1.0, Category::length);
  EXPECT_EQ(entry->first, "depth");
  EXPECT_DOUBLE_EQ(entry->second.value, 100.0);
  EXPECT_EQ(params.at("depth").units, resolve_units("cm"));
  EXPECT_EQ(thrown([&] { params.set("depth", 1.0, Category::time); }),
            "Unable to convert from \"cm\" to \"s\"");
  EXPECT_DOUBLE_EQ(params.at("depth").value, 100.0);
}

// The comments that set_checked adds when it replaces a requested value.
std::vector<std::string> remarks(double asked_cm, double found_m, double tolerance) {
  Params params;
  params.insert("step", asked_cm, "cm");
  const auto entry = params.set_checked("step", found_m, Category::length, tolerance);
  EXPECT_DOUBLE_EQ(entry->second.value, found_m * 100.0);
  EXPECT_EQ(entry->second.state, (ValueState{0, 1}));
  std::vector<std::string> result;
  for (std::uint32_t i = 0; i < params.comment_size(); ++i) {
    result.push_back(params.comment(i));
  }
  return result;
}

const std::vector<std::string> poor = {"Warning::Poor match"};
const std::vector<std::string> none = {};

TEST(Params, SetCheckedWarnsOfAPoorMatch) {
  EXPECT_EQ(remarks(100.0, 1.0, 0.01), none);
  EXPECT_EQ(remarks(100.9, 1.0, 0.01), none);
  EXPECT_EQ(remarks(99.1, 1.0, 0.01), none);
  EXPECT_EQ(remarks(101.1, 1.0, 0.01), poor);
  EXPECT_EQ(remarks(98.9, 1.0, 0.01), poor);
  EXPECT_EQ(remarks(-100.0, 1.0, 0.01), poor);
  EXPECT_EQ(remarks(-100.0, -1.0, 0.01), none);
}

TEST(Params, SetCheckedComparesRelativeToTheNewValue) {
  // 150 / 100 - 1 is 0.5, where 100 / 150 - 1 would be 0.33.
  EXPECT_EQ(remarks(150.0, 1.0, 0.4), poor);
  EXPECT_EQ(remarks(100.0, 1.5, 0.4), none);
  // A difference equal to the tolerance is a poor match; with a tolerance of 0 all are.
  EXPECT_EQ(remarks(150.0, 1.0, 0.5), poor);
  EXPECT_EQ(remarks(100.0, 1.0, 0.0), poor);
}

TEST(Params, SetCheckedComparesAbsolutelyNearZero) {
  const auto at_zero = [](double asked, double found) {
    Params params;
    params.insert("x", asked, "m");
    params.set_checked("x", found, Category::length, 0.01);
    EXPECT_EQ(params.at("x").value, found);
    return params.comment_size();
  };
  EXPECT_EQ(at_zero(0.0, 0.0), 0u);
  EXPECT_EQ(at_zero(0.9e-19, 0.0), 0u);
  EXPECT_EQ(at_zero(-0.9e-19, 0.0), 0u);
  EXPECT_EQ(at_zero(1e-19, 0.0), 1u);
  EXPECT_EQ(at_zero(-1.0, 0.0), 1u);
  EXPECT_EQ(at_zero(0.9e-19, -0.9e-20), 0u);
  // From 1e-20 on the comparison is relative.
  EXPECT_EQ(at_zero(0.9e-19, 1e-20), 1u);
  EXPECT_EQ(at_zero(1e-20, 1e-20), 0u);
}

TEST(Params, SetCheckedNeedsARequestedValue) {
  Params params;
  params.declare("x", resolve_units("m"));
  EXPECT_EQ(thrown([&] { params.set_checked("x", 1.0, Category::length, 0.1); }), "Invalid value");
  EXPECT_EQ(params.at("x").state, Base::InvalidState);
  params.insert("y", 1.0, "s");
  EXPECT_EQ(thrown([&] { params.set_checked("y", 1.0, Category::length, 0.1); }),
            "Unable to convert from \"s\" to \"m\"");
  EXPECT_EQ(params.comment_size(), 0u);
}

}  // namespace
