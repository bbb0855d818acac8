#include "base/units.h"

#include <gtest/gtest.h>

#include <numbers>
#include <sstream>
#include <string>
#include <vector>

#include "support/thrown.h"

namespace {

using Base::resolve_units;
using Base::Units;
using Testing::thrown;
using Names = std::vector<std::string>;

double convert(const std::string& from, const std::string& to) {
  return Base::factor(resolve_units(from), resolve_units(to));
}

constexpr double two_pi = 2.0 * std::numbers::pi;

TEST(Units, ALoneMIsTheMetre) { EXPECT_EQ(resolve_units("m"), (Units{8, 0})); }

TEST(Units, AWholeNameTakesPrecedenceOverAPrefix) {
  EXPECT_EQ(resolve_units("ms"), (Units{60, 0}));
  EXPECT_EQ(Base::category_of(resolve_units("ms")), Base::Category::length_time);
  EXPECT_EQ(resolve_units("msec"), (Units{51, 7}));
  EXPECT_DOUBLE_EQ(convert("msec", "s"), 0.001);
  EXPECT_EQ(resolve_units("min"), (Units{50, 0}));
  EXPECT_EQ(resolve_units("mi"), (Units{6, 0}));
  EXPECT_EQ(resolve_units("nm"), (Units{7, 0}));
  EXPECT_EQ(resolve_units("kn"), (Units{13, 0}));
  EXPECT_EQ(resolve_units("h"), (Units{49, 0}));
  EXPECT_EQ(resolve_units("hp"), (Units{75, 0}));
  EXPECT_EQ(resolve_units("g"), (Units{72, 0}));
  EXPECT_EQ(resolve_units("pdl"), (Units{32, 0}));
}

TEST(Units, APrefixAppliesToTheRestOfTheName) {
  EXPECT_EQ(resolve_units("kg"), (Units{72, 3}));
  EXPECT_EQ(resolve_units("kg/m3"), (Units{86, 3}));
  EXPECT_EQ(resolve_units("kpsi"), (Units{34, 3}));
}

TEST(Units, AnEmptyNameIsADimensionlessNumber) {
  EXPECT_EQ(resolve_units(""), (Units{1, 0}));
  EXPECT_EQ(resolve_units("unit"), (Units{1, 0}));
  EXPECT_EQ(resolve_units("k"), (Units{1, 3}));
  EXPECT_EQ(convert("k", ""), 1000.0);
}

TEST(Units, TheMessageQuotesTheWholeUnknownName) {
  for (const char* name : {"xm", "kxyz", "Error", "kError", "kkm", "M m", "m ", " m", "hz", "KM",
                           "x", "n", "S", "\xc2\xb5m"}) {
    EXPECT_EQ(thrown([&] { resolve_units(name); }), std::string("Unknown units - ") + name);
  }
}

TEST(Units, AStreamWritesThePrefixAndTheName) {
  std::ostringstream out;
  out << Units{8, 6} << ' ' << Units{86, 3} << ' ' << Units{1, 0} << ' ' << Units{52, 0};
  EXPECT_EQ(out.str(), "cm kg/m3  Hz");
}

TEST(Units, CategoriesWithoutDefaultUnitsAreRefused) {
  EXPECT_EQ(thrown([] { Base::default_units(0); }), "Set value 0 not supported");
  EXPECT_EQ(thrown([] { Base::default_units(24); }), "Set value 24 not supported");
  EXPECT_EQ(thrown([] { Base::factor_to_base({8, 0}, 24); }), "Set value 24 not supported");
}

TEST(Units, TheFactorOfEqualUnitsIsOne) {
  for (unsigned row = 0; row < 90; ++row) {
    for (unsigned prefix = 0; prefix < 10; ++prefix) {
      EXPECT_EQ(Base::factor({row, prefix}, {row, prefix}), 1.0);
    }
  }
}

TEST(Units, FrequencyConvertsWithAngularRate) {
  EXPECT_EQ(convert("Hz", "rad/s"), two_pi);
  EXPECT_EQ(convert("rad/s", "Hz"), 1.0 / two_pi);
  EXPECT_DOUBLE_EQ(convert("kHz", "rad/s"), 1000.0 * two_pi);
  EXPECT_DOUBLE_EQ(convert("rad/s", "kHz"), 0.001 / two_pi);
  EXPECT_DOUBLE_EQ(Base::factor_to_base(resolve_units("kHz"), Base::Category::angrate),
                   1000.0 * two_pi);
  EXPECT_DOUBLE_EQ(Base::factor_to_base(resolve_units("rpm"), Base::Category::frequency),
                   0.10472 / two_pi);
}

TEST(Units, PrefixesAreRaisedToThePowerOfTheUnit) {
  EXPECT_DOUBLE_EQ(convert("km2", "m2"), 1000000.0);
  EXPECT_DOUBLE_EQ(convert("cm2", "m2"), 0.0001);
  EXPECT_DOUBLE_EQ(convert("cm2", "km2"), 1e-10);
  EXPECT_DOUBLE_EQ(convert("mm3", "m3"), 1e-9);
  EXPECT_DOUBLE_EQ(convert("mm", "ft"), 0.001 / 0.3048);
  EXPECT_DOUBLE_EQ(convert("L", "m3"), 0.001);
  EXPECT_DOUBLE_EQ(convert("mL", "m3"), 1e-06);
  EXPECT_DOUBLE_EQ(convert("L", "dm3"), 1.0);
}

TEST(Units, EqualPrefixesCancelEvenIfThePowersDiffer) {
  EXPECT_EQ(convert("kL", "km3"), 0.001);
  EXPECT_EQ(convert("kL/s", "km3/s"), 0.001);
}

TEST(Units, DifferentCategoriesDoNotConvert) {
  EXPECT_EQ(thrown([] { convert("ft", "s"); }), "Unable to convert from \"ft\" to \"s\"");
  EXPECT_EQ(thrown([] { convert("s", "Hz"); }), "Unable to convert from \"s\" to \"Hz\"");
  EXPECT_EQ(thrown([] { convert("kHz", "ms"); }), "Unable to convert from \"kHz\" to \"ms\"");
  EXPECT_EQ(thrown([] { Base::factor_to_base(resolve_units("mm"), Base::Category::mass); }),
            "Unable to convert from \"mm\" to \"Mg\"");
}

TEST(Units, MassesAndDensitiesConvertToKilograms) {
  EXPECT_DOUBLE_EQ(Base::factor_to_base(resolve_units("Mg"), Base::Category::mass), 1000.0);
  EXPECT_DOUBLE_EQ(Base::factor_to_base(resolve_units("lb"), Base::Category::mass), 0.453592);
  EXPECT_DOUBLE_EQ(Base::factor_to_base(resolve_units("Mg/m3"), Base::Category::density), 1000.0);
  EXPECT_DOUBLE_EQ(Base::factor_to_base(resolve_units("kg"), Base::Category::mass), 1.0);
}

TEST(Units, AlternativesStartWithTheGivenUnitsIfTheyAreNotListed) {
  const auto offered = [](const char* name) { return Base::alternate(resolve_units(name)); };
  EXPECT_EQ(offered("km"), (Names{"km", "m", "cm", "mm", "ft", "in"}));
  EXPECT_EQ(offered("ft"), (Names{"m", "cm", "mm", "ft", "in"}));
  EXPECT_EQ(offered("s"), (Names{"s", "min", "h"}));
  EXPECT_EQ(offered("msec"), (Names{"ms", "s", "min", "h"}));
  EXPECT_EQ(offered("hr"), (Names{"s", "min", "h"}));
  EXPECT_EQ(offered("Hz"), (Names{"Hz", "rad/s"}));
  EXPECT_EQ(offered("rpm"), (Names{"r/min", "Hz", "rad/s"}));
  EXPECT_EQ(offered("deg"), (Names{"rad", "deg"}));
  EXPECT_EQ(offered("mrad"), (Names{"mrad", "rad", "deg"}));
  EXPECT_EQ(offered("N"), (Names{"N"}));
  EXPECT_EQ(offered(""), (Names{""}));
}

// A host may pass any two numbers as units.
TEST(Units, RowsAndPrefixesOutsideTheTablesDoNotConvert) {
  EXPECT_EQ(Base::units_text({90, 0}), "Error");
  EXPECT_EQ(Base::units_text({4000000000u, 10}), "Error");
  EXPECT_EQ(Base::category_of({90, 0}), Base::Category::error);
  EXPECT_FALSE(Base::compatible({90, 0}, 8));
  EXPECT_FALSE(Base::compatible({8, 0}, 90));
  EXPECT_EQ(thrown([] {
              Base::factor({90, 0}, {8, 0});
            }),
            "Unable to convert from \"Error\" to \"m\"");
  EXPECT_EQ(thrown([] {
              Base::factor({8, 10}, {4, 0});
            }),
            "Unable to convert from \"m\" to \"ft\"");
  EXPECT_EQ(thrown([] {
              Base::factor({8, 0}, {4, 170});
            }),
            "Unable to convert from \"m\" to \"ft\"");
  EXPECT_EQ(thrown([] {
              Base::factor_to_base({8, 10}, Base::Category::length);
            }),
            "Unable to convert from \"m\" to \"m\"");
}

}  // namespace
