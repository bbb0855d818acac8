#include "jobs/bind_parameters.h"

#include <gtest/gtest.h>

#include <memory>

#include "base/enumerations.h"
#include "jobs/read_toml.h"

namespace Jobs {
namespace {

namespace Category = Base::Category;

// A part of kind "test" with the members of a TOML text.
Part part_of(const std::string& toml) {
  auto source = std::make_shared<SourceText>(SourceText{"job.toml", toml});
  Part part;
  part.title = "a `test` wave";
  part.parameters = read_toml(source);
  part.span = {source, 1, 1, 1};
  return part;
}

Declared wave() {
  Declared declared;
  declared.params.declare("hs", Base::default_units(Category::length));
  declared.params.declare("tp", Base::default_units(Category::time));
  declared.params.declare("gamma", Base::default_units(Category::unit));
  declared.params.declare_enum("function", Base::EnumType::SpreadFunc);
  declared.params.declare_enum("set", Base::EnumType::Bool);
  declared.fallbacks = {{"gamma", "3.3"}, {"function", "Cos2S"}, {"set", "False"}};
  return declared;
}

Base::Params bound(const std::string& toml, const Declared& declared = wave()) {
  Diagnostics faults;
  auto params = bind_parameters(part_of(toml), declared, faults);
  for (const Diagnostic& fault : faults) ADD_FAILURE() << show(fault);
  return params.value_or(Base::Params());
}

// Each fault as "<line>:<column>+<length> <fault> (<label>)".
std::string refused(const std::string& toml, const Declared& declared = wave()) {
  Diagnostics faults;
  EXPECT_FALSE(bind_parameters(part_of(toml), declared, faults).has_value());
  std::string text;
  for (const Diagnostic& fault : faults) {
    text += std::to_string(fault.span.line) + ":" + std::to_string(fault.span.column) + "+" +
            std::to_string(fault.span.length) + " " + fault.fault + " (" + fault.label + ")\n";
  }
  return text;
}

TEST(BindParameters, ReadsQuantitiesInAnyUnitsThatConvert) {
  const Base::Params params = bound("hs = \"80 mm\"\ntp = \"0.05 min\"\ngamma = 2");
  EXPECT_NEAR(params.read("hs", Category::length), 0.08, 1e-15);
  EXPECT_NEAR(params.read("tp", Category::time), 3.0, 1e-12);
  EXPECT_EQ(params.read("gamma", Category::unit), 2.0);
}

TEST(BindParameters, ReadsAnAngularRateForAFrequency) {
  Declared declared;
  declared.params.declare("f", Base::default_units(Category::frequency));
  EXPECT_NEAR(bound("f = \"6.283185307179586 rad/s\"", declared).read("f", Category::frequency),
              1.0, 1e-12);
}

TEST(BindParameters, KeepsTheUnitsInWhichAValueWasGiven) {
  const Base::Params params = bound("hs = \"80 mm\"\ntp = \"2 s\"");
  EXPECT_EQ(params.at("hs").value, 80.0);
  EXPECT_EQ(Base::units_text(params.at("hs").units), "mm");
}

TEST(BindParameters, FillsInFallbacks) {
  const Base::Params params = bound("hs = \"1 m\"\ntp = \"2 s\"");
  EXPECT_EQ(params.read("gamma", Category::unit), 3.3);
  EXPECT_EQ(params.read_enum("function", Base::EnumType::SpreadFunc), Base::SpreadFunc::Cos2S);
  EXPECT_EQ(params.read_enum("set", Base::EnumType::Bool), Base::Bool::False);
}

TEST(BindParameters, TakesTrueAndFalseForABool) {
  EXPECT_EQ(bound("hs = \"1 m\"\ntp = \"2 s\"\nset = true").read_enum("set", Base::EnumType::Bool),
            Base::Bool::True);
  EXPECT_EQ(
      bound("hs = \"1 m\"\ntp = \"2 s\"\nset = \"True\"").read_enum("set", Base::EnumType::Bool),
      Base::Bool::True);
}

TEST(BindParameters, KeepsAValueThatTheLibraryDeclares) {
  Declared declared;
  declared.params.insert("drive_gain", 1.5, "");
  EXPECT_EQ(bound("", declared).read("drive_gain", Category::unit), 1.5);
}

TEST(BindParameters, LeavesOutWhatIsOptional) {
  Declared declared = wave();
  declared.fallbacks.erase("gamma");
  declared.optional = {"gamma"};
  EXPECT_FALSE(bound("hs = \"1 m\"\ntp = \"2 s\"", declared).contains("gamma"));
  EXPECT_TRUE(bound("hs = \"1 m\"\ntp = \"2 s\"\ngamma = 1", declared).contains("gamma"));
}

TEST(BindParameters, NamesTheKeyThatAMisspeltOneMeans) {
  EXPECT_EQ(refused("hs = \"80 mm\"\ntp = \"2 s\"\ngama = 3.3"),
            "3:1+4 unknown key `gama` in a `test` wave (did you mean `gamma`?)\n");
}

TEST(BindParameters, ListsTheKeysWhenNoneIsNear) {
  EXPECT_EQ(refused("hs = \"80 mm\"\ntp = \"2 s\"\nwaterfall = 3.3"),
            "3:1+9 unknown key `waterfall` in a `test` wave "
            "(use function, gamma, hs, set, tp)\n");
}

TEST(BindParameters, DoesNotCallAMisspeltKeyMissingToo) {
  EXPECT_EQ(refused("hs = \"80 mm\"\ntpp = \"2 s\""),
            "2:1+3 unknown key `tpp` in a `test` wave (did you mean `tp`?)\n");
}

TEST(BindParameters, NamesWhatIsMissingAndItsUnits) {
  EXPECT_EQ(refused("tp = \"2 s\""),
            "1:1+1 `hs` is missing in a `test` wave (a length in m, mm, cm, ft, in)\n");
}

TEST(BindParameters, ExplainsWhatIsMissing) {
  Declared declared = wave();
  declared.meanings["hs"] = "significant height";
  EXPECT_EQ(refused("tp = \"2 s\"", declared),
            "1:1+1 `hs` is missing in a `test` wave "
            "(significant height: a length in m, mm, cm, ft, in)\n");
}

TEST(BindParameters, RefusesUnitsOfAnotherKind) {
  EXPECT_EQ(refused("hs = \"80 s\"\ntp = \"2 s\""),
            "1:6+6 `hs` is a length, but \"80 s\" is a time (use m, mm, cm, ft, in)\n");
}

TEST(BindParameters, RefusesUnitsOnAPlainNumber) {
  EXPECT_EQ(refused("hs = \"80 mm\"\ntp = \"2 s\"\ngamma = \"3.3 m\""),
            "3:9+7 `gamma` is a plain number, but \"3.3 m\" is a length (leave out the units)\n");
}

TEST(BindParameters, RefusesANumberWithoutUnits) {
  EXPECT_EQ(refused("hs = 80\ntp = \"2\""),
            "1:6+2 `hs` is a length, but 80 has no units "
            "(write it as text with units: m, mm, cm, ft, in)\n"
            "2:6+3 `tp` is a time, but \"2\" has no units (use s, min, msec, h)\n");
}

TEST(BindParameters, RefusesATextThatIsNoNumber) {
  EXPECT_EQ(refused("hs = \"high\"\ntp = \"2 s\""),
            "1:6+6 `hs` is a length, but \"high\" is not a number (use m, mm, cm, ft, in)\n");
}

TEST(BindParameters, RefusesUnknownUnits) {
  EXPECT_EQ(refused("hs = \"80 parsecs\"\ntp = \"2 s\""),
            "1:6+12 `hs` is a length, but \"80 parsecs\" has unknown units "
            "(use m, mm, cm, ft, in)\n");
}

TEST(BindParameters, RefusesNumbersThatAreNotFinite) {
  EXPECT_EQ(refused("hs = \"1 m\"\ntp = \"2 s\"\ngamma = nan"),
            "3:9+3 `gamma` is not a finite number ()\n");
}

TEST(BindParameters, RefusesValuesThatAreTooLargeInBaseUnits) {
  EXPECT_EQ(refused("hs = \"-1e308 km\"\ntp = \"2 s\""),
            "1:6+11 `hs` is a length, but \"-1e308 km\" is too large ()\n");
  EXPECT_EQ(bound("hs = \"1e308 m\"\ntp = \"2 s\"").read("hs", Category::length), 1e308);
}

TEST(BindParameters, ListsTheMembersOfAnEnumeration) {
  EXPECT_EQ(refused("hs = \"1 m\"\ntp = \"2 s\"\nfunction = \"Gauss\""),
            "3:12+7 `function` cannot be \"Gauss\" (use CosS, Cos2S)\n");
  EXPECT_EQ(refused("hs = \"1 m\"\ntp = \"2 s\"\nfunction = \"cos2s\""),
            "3:12+7 `function` cannot be \"cos2s\" (did you mean `Cos2S`?)\n");
  EXPECT_EQ(refused("hs = \"1 m\"\ntp = \"2 s\"\nfunction = true"),
            "3:12+4 `function` cannot be true (use CosS, Cos2S)\n");
}

TEST(BindParameters, RefusesTablesAndArrays) {
  EXPECT_EQ(refused("hs = [1, 2]\ntp = { s = 2 }"),
            "1:6+6 `hs` is a length, but the job has an array (use m, mm, cm, ft, in)\n"
            "2:6+9 `tp` is a time, but the job has a table (use s, min, msec, h)\n");
}

TEST(BindParameters, ReportsAllFaultsOfAPart) {
  EXPECT_EQ(refused("hs = \"80 s\"\nfoo = 1\ngamma = \"2 m\""),
            "1:6+6 `hs` is a length, but \"80 s\" is a time (use m, mm, cm, ft, in)\n"
            "2:1+3 unknown key `foo` in a `test` wave (use function, gamma, hs, set, tp)\n"
            "3:9+5 `gamma` is a plain number, but \"2 m\" is a length (leave out the units)\n"
            "1:1+1 `tp` is missing in a `test` wave (a time in s, min, msec, h)\n");
}

TEST(BindParameters, NamesNoUnitsForAMissingNumberOrChoice) {
  Declared declared = wave();
  declared.fallbacks.clear();
  EXPECT_EQ(refused("hs = \"1 m\"\ntp = \"2 s\"", declared),
            "1:1+1 `function` is missing in a `test` wave (one of CosS, Cos2S)\n"
            "1:1+1 `gamma` is missing in a `test` wave (a plain number)\n"
            "1:1+1 `set` is missing in a `test` wave (true or false)\n");
}

TEST(BindParameters, SaysWhenAPartTakesNoKeys) {
  EXPECT_EQ(refused("x = 1", Declared()),
            "1:1+1 unknown key `x` in a `test` wave (it takes no keys)\n");
}

}  // namespace
}  // namespace Jobs
