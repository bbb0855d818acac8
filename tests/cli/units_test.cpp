// `kelpbox units`.
#include <gtest/gtest.h>

#include <nlohmann/json.hpp>
#include <string>

#include "cli/commands.h"
#include "cli/unit_names.h"
#include "text_console.h"

namespace {

class Units : public testing::Test, public Testing::TextConsole {
 protected:
  int convert(const std::string& quantity, const std::string& to = "") {
    out_stream.str("");
    err_stream.str("");
    return Cli::units(quantity, to, console);
  }
};

TEST_F(Units, ConvertsAQuantity) {
  EXPECT_EQ(convert("3 ft/s", "m/s"), 0);
  EXPECT_EQ(out(), "0.9144 m/s\n");
  EXPECT_EQ(err(), "");
}

TEST_F(Units, ConvertsFrequencyToAngularRate) {
  EXPECT_EQ(convert("0.8Hz", "rad/s"), 0);
  EXPECT_EQ(out(), "5.026548246 rad/s\n");  // 1.6 pi to ten digits
}

TEST_F(Units, ShowsNoRoundingNoise) {
  convert("0.1 m", "mm");
  EXPECT_EQ(out(), "100 mm\n");
  convert("-25 cm", "m");
  EXPECT_EQ(out(), "-0.25 m\n");
}

TEST_F(Units, TakesUnitsAloneAsOneOfThem) {
  EXPECT_EQ(convert("ft", "m"), 0);
  EXPECT_EQ(out(), "0.3048 m\n");
}

TEST_F(Units, ListsTheAlternativesWithoutATarget) {
  EXPECT_EQ(convert("80 mm"), 0);
  EXPECT_EQ(out(), "0.08 m\n8 cm\n80 mm\n0.2624671916 ft\n3.149606299 in\n");
}

TEST_F(Units, ListsAllUnitsOfAKindWithoutUsualAlternatives) {
  EXPECT_EQ(convert("1 m2"), 0);
  EXPECT_EQ(out().substr(0, out().find('\n')), "1 m2");
  EXPECT_NE(out().find(" ft2\n"), std::string::npos);
}

TEST_F(Units, RefusesUnitsOfAnotherKind) {
  EXPECT_EQ(convert("3 ft/s", "Hz"), 2);
  EXPECT_EQ(out(), "");
  EXPECT_EQ(err(),
            "error: \"ft/s\" is a velocity, but \"Hz\" is a frequency\n"
            "  = a velocity can be given in ft/s, in/s, ft/min, mi/h, kn, m/h, m/s\n");
}

TEST_F(Units, AsksForTheUnitsOfAPlainNumber) {
  EXPECT_EQ(convert("3", "m"), 2);
  EXPECT_EQ(err(),
            "error: \"3\" is a plain number, but \"m\" is a length\n"
            "  = give it units, such as \"3 m\"\n");
}

TEST_F(Units, ExplainsTheMetreSecond) {
  EXPECT_EQ(convert("20 ms", "s"), 2);
  EXPECT_NE(err().find("ms is the metre-second, a millisecond is msec"), std::string::npos);
  EXPECT_EQ(convert("2 yds", "m"), 2);
  EXPECT_NE(err().find("yds is the yard-second, the yard is yd"), std::string::npos);
  EXPECT_EQ(convert("2 m", "fts"), 2);
  EXPECT_NE(err().find("fts is the foot-second, the foot is ft"), std::string::npos);
  EXPECT_EQ(convert("2 ins", "m"), 2);
  EXPECT_NE(err().find("ins is the inch-second, the inch is in"), std::string::npos);
}

TEST_F(Units, NamesTheNearestUnit) {
  const std::pair<const char*, const char*> cases[] = {
      {"hz", "Hz"},        {"metres", "m"},      {"feet", "ft"},    {"m/s^2", "m/s2"},
      {"m\u00b2s", "m2s"}, {"rad/sec", "rad/s"}, {"degrees", "deg"}};
  for (const auto& [written, meant] : cases) {
    EXPECT_EQ(convert("1 " + std::string(written), "m"), 2) << written;
    EXPECT_EQ(err(), "error: unknown units \"" + std::string(written) +
                         "\"\n  = a unit with a similar name is \"" + meant + "\"\n");
  }
  EXPECT_EQ(convert("1 METRES", "ft"), 2);
  EXPECT_NE(err().find("similar name is \"m\""), std::string::npos);
  EXPECT_EQ(convert("1 m", "meters"), 2);
  EXPECT_NE(err().find("similar name is \"m\""), std::string::npos);
}

TEST_F(Units, NamesNoUnitForWhatIsLikeNone) {
  for (const char* written : {"xyzzyplugh", "^*"}) {
    EXPECT_EQ(convert("1 m", written), 2);
    EXPECT_EQ(err(), "error: unknown units \"" + std::string(written) +
                         "\"\n  = `kelpbox formulas` lists all units\n");
  }
}

TEST_F(Units, ReportsErrorsAsJson) {
  console.json = true;
  EXPECT_EQ(convert("3 ft/s", "Hz"), 2);
  EXPECT_EQ(err(), "");
  const auto error = nlohmann::json::parse(out())["error"];
  EXPECT_EQ(error["code"], 2);
  EXPECT_EQ(error["message"].get<std::string>().find(
                "\"ft/s\" is a velocity, but \"Hz\" is a frequency (a velocity can be"),
            0U);
}

TEST_F(Units, TakesAPlainNumber) {
  EXPECT_EQ(convert("3"), 0);
  EXPECT_EQ(out(), "3\n");
}

TEST(LikelyUnit, OfAWordIsItsSymbol) {
  const std::pair<const char*, const char*> words[] = {
      {"millimetres", "mm"}, {"centimeters", "cm"}, {"kilometre", "km"}, {"inches", "in"},
      {"foot", "ft"},        {"yard", "yd"},        {"miles", "mi"},     {"knots", "kn"},
      {"seconds", "s"},      {"minutes", "min"},    {"hour", "h"},       {"hertz", "Hz"},
      {"radians", "rad"},    {"grams", "g"},        {"kilograms", "kg"}, {"pounds", "lb"},
      {"ounces", "oz"},      {"newtons", "N"},      {"pascals", "Pa"},   {"litres", "L"},
      {"joules", "J"},       {"watts", "W"},        {"volts", "V"},      {"amperes", "A"}};
  for (const auto& [word, symbol] : words) EXPECT_EQ(Cli::likely_unit(word), symbol) << word;
  EXPECT_EQ(Cli::likely_unit("tonnes"), "Mg");          // 1000 kg
  EXPECT_EQ(Cli::likely_unit("milliseconds"), "msec");  // ms is the metre-second
}

TEST_F(Units, RefusesWhatIsNoQuantity) {
  EXPECT_EQ(convert("1,5 m", "mm"), 2);
  EXPECT_NE(err().find("the decimal mark is a point"), std::string::npos);
  EXPECT_EQ(convert("", "mm"), 2);
  EXPECT_EQ(convert("nan m", "mm"), 2);
  EXPECT_EQ(out(), "");
}

TEST_F(Units, SaysWhereTheTableIsNotWhatTheNameSays) {
  EXPECT_EQ(convert("1 usgal", "L"), 0);
  EXPECT_NE(err().find("ten times the real ones"), std::string::npos);
  convert("1 imppt", "L");
  EXPECT_NE(err().find("ten times the real ones"), std::string::npos);
  // Once, although several units are listed.
  convert("1 usgal");
  EXPECT_EQ(err().find("ten times"), err().rfind("ten times"));
  convert("1 m", "pm");
  EXPECT_NE(err().find("p is nano"), std::string::npos);
  convert("1 pm", "m");
  EXPECT_EQ(out(), "1e-09 m\n");
  EXPECT_NE(err().find("p is nano"), std::string::npos);
  convert("1 mL", "mm3");  // 1000 in truth
  EXPECT_EQ(out(), "0.001 mm3\n");
  EXPECT_NE(err().find("equal prefixes"), std::string::npos);
  console.quiet = true;
  convert("1 usgal", "L");
  EXPECT_EQ(err(), "");
}

TEST_F(Units, WritesJson) {
  console.json = true;
  EXPECT_EQ(convert("3 ft/s", "m/s"), 0);
  const auto json = nlohmann::json::parse(out());
  EXPECT_EQ(json["kind"], "velocity");
  EXPECT_EQ(json["given"]["value"], 3.0);
  EXPECT_EQ(json["results"].size(), 1U);
  EXPECT_DOUBLE_EQ(json["results"][0]["value"], 0.9144);
  EXPECT_EQ(json["results"][0]["units"], "m/s");
}

}  // namespace
