#include "jobs/quantity_text.h"

#include <gtest/gtest.h>

#include <sstream>
#include <string>

#include "base/units.h"

namespace {

using Jobs::read_quantity;

std::string units_of(const std::string& text) {
  return Base::units_text(read_quantity(text).units);
}

std::string fault_of(const std::string& text) {
  try {
    read_quantity(text);
  } catch (const std::string& message) {
    return message;
  }
  return "no fault";
}

TEST(QuantityText, NumberAndUnitsWithOrWithoutBlanks) {
  for (const char* text : {"80 mm", "80mm", " 80 mm ", "80\tmm", "8e1 mm", "8.0E+1mm", "+80 mm"}) {
    EXPECT_EQ(read_quantity(text).value, 80.0) << text;
    EXPECT_EQ(units_of(text), "mm") << text;
  }
}

TEST(QuantityText, NumbersOfEachForm) {
  EXPECT_EQ(read_quantity("-25 deg").value, -25.0);
  EXPECT_EQ(read_quantity(".5 m").value, 0.5);
  EXPECT_EQ(read_quantity("5. m").value, 5.0);
  EXPECT_EQ(read_quantity("2.5e-3 m").value, 0.0025);
  EXPECT_EQ(read_quantity("010 m").value, 10.0);
  EXPECT_EQ(read_quantity("1e-400 m").value, 0.0);
}

TEST(QuantityText, WithoutUnitsItIsAPlainNumber) {
  EXPECT_EQ(read_quantity("3.3").value, 3.3);
  EXPECT_EQ(Base::category_of(read_quantity("3.3").units), Base::Category::unit);
  EXPECT_EQ(Base::category_of(read_quantity("3.3 unit").units), Base::Category::unit);
}

TEST(QuantityText, UnitsAreThoseOfTheLibrary) {
  EXPECT_EQ(units_of("3 ft/s"), "ft/s");
  EXPECT_EQ(units_of("1 m2/Hz"), "m2s");
  EXPECT_EQ(units_of("10 msec"), "ms");  // milliseconds are shown like this
  EXPECT_EQ(Base::category_of(read_quantity("10 msec").units), Base::Category::time);
  EXPECT_EQ(Base::category_of(read_quantity("10 ms").units), Base::Category::length_time);
}

TEST(QuantityText, UnknownUnitsAreTheLibrarysMessage) {
  EXPECT_EQ(fault_of("80 parsec"), "Unknown units - parsec");
  EXPECT_EQ(fault_of("80 m m"), "Unknown units - m m");
  EXPECT_EQ(fault_of("5%"), "Unknown units - %");
  EXPECT_EQ(fault_of("5 \xC2\xB0"), "Unknown units - \xC2\xB0");
  EXPECT_EQ(fault_of("1e m"), "Unknown units - e m");
}

TEST(QuantityText, TextThatIsNoNumberIsRefused) {
  EXPECT_EQ(fault_of(""), "\"\" is not a number");
  EXPECT_EQ(fault_of("  "), "\"\" is not a number");
  EXPECT_EQ(fault_of("mm"), "\"mm\" is not a number");
  EXPECT_EQ(fault_of("in"), "\"in\" is not a number");
  EXPECT_EQ(fault_of("- 5 m"), "\"- 5 m\" is not a number");
  EXPECT_EQ(fault_of("--5"), "\"--5\" is not a number");
  EXPECT_EQ(fault_of("."), "\".\" is not a number");
  EXPECT_EQ(fault_of("e5"), "\"e5\" is not a number");
  EXPECT_EQ(fault_of("\xE2\x88\x92"
                     "5 m"),
            "\"\xE2\x88\x92"
            "5 m\" is not a number");
}

TEST(QuantityText, ANumberThatGoesOnIsRefused) {
  EXPECT_EQ(fault_of("1.2.3"), "\"1.2.3\" is not a number");
  EXPECT_EQ(fault_of("0x10"), "\"0x10\" is not a number");
  EXPECT_EQ(fault_of("2-3 m"), "\"2-3 m\" is not a number");
  EXPECT_EQ(fault_of("1_000"), "\"1_000\" is not a number");
  EXPECT_EQ(fault_of("1,5 m"),
            "\"1,5 m\" is not a number: the decimal mark is a point, and digits are not grouped");
}

TEST(QuantityText, NumbersThatAreNotFiniteAreRefused) {
  for (const std::string text :
       {"inf", "-inf m", "+Infinity", "nan", "NaN s", "1e999 m", "-1e999"}) {
    EXPECT_EQ(fault_of(text), '"' + text + "\" is not a finite number");
  }
}

TEST(QuantityText, EveryKindOfUnitsHasItsName) {
  EXPECT_EQ(Jobs::kind_of(Base::resolve_units("mm")), "a length");
  EXPECT_EQ(Jobs::kind_of(Base::resolve_units("s")), "a time");
  EXPECT_EQ(Jobs::kind_of(Base::resolve_units("Hz")), "a frequency");
  EXPECT_EQ(Jobs::kind_of(Base::resolve_units("deg")), "an angle");
  EXPECT_EQ(Jobs::kind_of(Base::resolve_units("")), "a plain number");
  EXPECT_EQ(Jobs::kind_of(Base::resolve_units("m2/Hz")), "a variance density");
  EXPECT_EQ(Jobs::kind_of(Base::resolve_units("m/Hz")), "an amplitude density");
  EXPECT_EQ(Jobs::kind_of(Base::resolve_units("rpm")), "an angular rate");
  EXPECT_EQ(Jobs::kind_of(Base::Units{0, 0}), "of an unknown kind");
  std::vector<std::string> names;
  for (Base::UnitCategory category = 1; category <= 23; ++category) {
    names.push_back(Jobs::kind_of(Base::default_units(category)));
    EXPECT_EQ(names.back().rfind('a', 0), 0U) << category;
  }
  std::sort(names.begin(), names.end());
  EXPECT_EQ(std::unique(names.begin(), names.end()), names.end()) << "two kinds share a name";
}

TEST(QuantityText, UsualUnitsOfTheCommonKinds) {
  EXPECT_EQ(Jobs::usual_units(Base::resolve_units("ft")), "m, mm, cm, ft, in");
  EXPECT_EQ(Jobs::usual_units(Base::resolve_units("s")), "s, min, msec, h");
  EXPECT_EQ(Jobs::usual_units(Base::resolve_units("Hz")), "Hz, rad/s, rpm");
  EXPECT_EQ(Jobs::usual_units(Base::resolve_units("rad")), "deg, rad");
  EXPECT_EQ(Jobs::usual_units(Base::resolve_units("m2/Hz")), "m2s");
  EXPECT_EQ(Jobs::usual_units(Base::resolve_units("")), "a number without units");
}

TEST(QuantityText, UsualUnitsConvertToTheGivenOnes) {
  for (Base::UnitCategory category = 2; category <= 23; ++category) {
    const Base::Units units = Base::default_units(category);
    std::istringstream list(Jobs::usual_units(units));
    int count = 0;
    for (std::string name; std::getline(list >> std::ws, name, ',');) {
      EXPECT_TRUE(Base::compatible(Base::resolve_units(name), units.row)) << name;
      ++count;
    }
    EXPECT_GE(count, 1) << category;
  }
}

TEST(QuantityText, AnExponentWithoutDigitsIsNone) {
  EXPECT_EQ(fault_of("5e"), fault_of("5 e"));
  EXPECT_NE(fault_of("5e"), "no fault");
}

TEST(QuantityText, OnlyLettersMakeAWordForNoNumber) {
  EXPECT_EQ(fault_of("inf_"), "\"inf_\" is not a finite number");
  EXPECT_EQ(fault_of("-nan{"), "\"-nan{\" is not a finite number");
  EXPECT_EQ(fault_of("in_f"), "\"in_f\" is not a number");
}

}  // namespace
