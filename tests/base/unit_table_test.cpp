// The whole table of units, against the definitions of the units and over all pairs of rows.
#include "base/unit_table.h"

#include <gtest/gtest.h>

#include <cmath>
#include <map>
#include <numbers>
#include <set>
#include <string>

#include "base/units.h"
#include "support/thrown.h"
#include "unit_facts.h"

namespace {

using Base::Units;
using Testing::thrown;

constexpr unsigned frequency = 11;
constexpr unsigned angrate = 18;

double power_of(double multiplier, unsigned power) {
  double product = 1.0;
  for (unsigned i = 0; i < power; ++i) {
    product *= multiplier;
  }
  return product;
}

TEST(UnitTable, RowsMatchTheReferenceTable) {
  ASSERT_EQ(unit_facts().size(), 90u);
  ASSERT_EQ(Base::unit_table.size(), 90u);
  for (unsigned row = 0; row < 90; ++row) {
    const UnitFact& fact = unit_facts()[row];
    SCOPED_TRACE(fact.name);
    EXPECT_EQ(Base::unit_table[row].name, fact.name);
    EXPECT_EQ(Base::unit_table[row].category, fact.category);
    EXPECT_EQ(Base::unit_table[row].power, fact.power);
    EXPECT_EQ(Base::unit_table[row].factor, fact.factor());
  }
}

TEST(UnitTable, FactorsAreTheDefinitionsRounded) {
  for (unsigned row = 0; row < 90; ++row) {
    const UnitFact& fact = unit_facts()[row];
    EXPECT_NEAR(Base::unit_table[row].factor, fact.defined, fact.tolerance()) << fact.name;
  }
}

TEST(UnitTable, PrefixesMatchTheReferenceTable) {
  ASSERT_EQ(Base::prefix_table.size(), prefix_facts().size());
  for (std::size_t prefix = 1; prefix < prefix_facts().size(); ++prefix) {
    EXPECT_EQ(std::string(1, Base::prefix_table[prefix].letter), prefix_facts()[prefix].letter);
    EXPECT_EQ(Base::prefix_table[prefix].multiplier, prefix_facts()[prefix].multiplier);
  }
  EXPECT_EQ(Base::prefix_table[0].multiplier, 1.0);
}

// A whole name takes precedence over a prefix and a name.
TEST(UnitTable, EveryNameResolvesWithEveryPrefix) {
  std::map<std::string, unsigned> names;
  for (unsigned row = 1; row < 90; ++row) {
    names[unit_facts()[row].name] = row;
    for (const std::string& more : unit_facts()[row].more_names) {
      names[more] = row;
    }
  }
  ASSERT_EQ(names.size(), 89u + 8u);
  std::set<std::string> taken_by_whole_names;
  for (const auto& [name, row] : names) {
    EXPECT_EQ(Base::resolve_units(name), (Units{row, 0})) << name;
    for (unsigned prefix = 1; prefix < 10; ++prefix) {
      const std::string spelling = prefix_facts()[prefix].letter + name;
      const auto whole = names.find(spelling);
      if (whole == names.end()) {
        EXPECT_EQ(Base::resolve_units(spelling), (Units{row, prefix})) << spelling;
      } else {
        taken_by_whole_names.insert(spelling);
        EXPECT_EQ(Base::resolve_units(spelling), (Units{whole->second, 0})) << spelling;
      }
    }
  }
  EXPECT_EQ(taken_by_whole_names, (std::set<std::string>{"h", "m", "min", "ms"}));
}

TEST(UnitTable, NoOtherCharacterIsAPrefix) {
  const std::string letters = "GMkhdcmup";
  for (int c = 1; c < 256; ++c) {
    const std::string spelling = std::string(1, static_cast<char>(c)) + "rad/m";
    if (letters.find(static_cast<char>(c)) == std::string::npos) {
      EXPECT_EQ(thrown([&] { Base::resolve_units(spelling); }), "Unknown units - " + spelling) << c;
    } else {
      EXPECT_EQ(Base::resolve_units(spelling).row, 87u) << c;
    }
  }
  EXPECT_EQ(thrown([] { Base::resolve_units(std::string(1, '\0')); }),
            "Unknown units - " + std::string(1, '\0'));
}

TEST(UnitTable, EveryNameIsWrittenWithItsPrefix) {
  for (unsigned row = 0; row < 90; ++row) {
    for (unsigned prefix = 0; prefix < 10; ++prefix) {
      EXPECT_EQ(Base::units_text({row, prefix}),
                prefix_facts()[prefix].letter + unit_facts()[row].name);
    }
  }
}

TEST(UnitTable, RowsConvertWithinACategoryAndBetweenFrequencyAndAngularRate) {
  for (unsigned from = 0; from < 90; ++from) {
    for (unsigned to = 0; to < 90; ++to) {
      const unsigned a = unit_facts()[from].category;
      const unsigned b = unit_facts()[to].category;
      const bool expected = a == b || std::set{a, b} == std::set{frequency, angrate};
      EXPECT_EQ(Base::compatible({from, 0}, to), expected) << from << " " << to;
      EXPECT_EQ(Base::compatible({from, 3}, to), expected) << from << " " << to;
      if (!expected) {
        EXPECT_EQ(thrown([&] {
                    Base::factor({from, 0}, {to, 0});
                  }),
                  "Unable to convert from \"" + unit_facts()[from].name + "\" to \"" +
                      unit_facts()[to].name + "\"");
      }
    }
  }
}

double expected_factor(unsigned from, unsigned from_prefix, unsigned to, unsigned to_prefix) {
  const UnitFact& a = unit_facts()[from];
  const UnitFact& b = unit_facts()[to];
  double expected = a.factor() / b.factor();
  if (a.category != b.category) {
    constexpr double turn = 2.0 * std::numbers::pi;
    expected = a.category == frequency ? expected * turn : expected / turn;
  }
  if (from_prefix == to_prefix) {
    return expected;
  }
  const bool plain = a.power < 2 && b.power < 2;
  return expected * power_of(prefix_facts()[from_prefix].multiplier, plain ? 1 : a.power) /
         power_of(prefix_facts()[to_prefix].multiplier, plain ? 1 : b.power);
}

TEST(UnitTable, FactorsOfAllPairsAndPrefixesFollowTheDefinitions) {
  unsigned long pairs = 0;
  for (unsigned from = 1; from < 90; ++from) {
    for (unsigned to = 1; to < 90; ++to) {
      if (!Base::compatible({from, 0}, to)) {
        continue;
      }
      ++pairs;
      for (unsigned p = 0; p < 10; ++p) {
        for (unsigned q = 0; q < 10; ++q) {
          const double expected = expected_factor(from, p, to, q);
          ASSERT_NEAR(Base::factor({from, p}, {to, q}) / expected, 1.0, 1e-14)
              << Base::units_text({from, p}) << " to " << Base::units_text({to, q});
        }
      }
    }
  }
  // The square of each category's size, plus Hz with each of the three angular rates both ways.
  EXPECT_EQ(pairs, 1u + 49 + 49 + 4 + 16 + 81 + 9 + 9 + 144 + 9 + 1 + 64 + 64 + 16 + 4 + 4 + 4 + 9 +
                       9 + 4 + 1 + 1 + 1 + 6);
}

TEST(UnitTable, FactorsToTheBaseUnitFollowTheDefinitions) {
  for (unsigned row = 1; row < 90; ++row) {
    const UnitFact& fact = unit_facts()[row];
    for (unsigned prefix = 0; prefix < 10; ++prefix) {
      const double multiplier = power_of(prefix_facts()[prefix].multiplier, fact.power);
      EXPECT_NEAR(Base::factor_to_base({row, prefix}, fact.category) / (fact.factor() * multiplier),
                  1.0, 1e-14);
    }
    for (unsigned category = 1; category <= 23; ++category) {
      if (category == fact.category ||
          std::set{category, fact.category} == std::set{frequency, angrate}) {
        continue;
      }
      EXPECT_EQ(thrown([&] {
                  Base::factor_to_base({row, 0}, category);
                }),
                "Unable to convert from \"" + fact.name + "\" to \"" +
                    default_unit_facts()[category - 1] + "\"");
    }
  }
}

TEST(UnitTable, EveryCategoryHasItsDefaultUnits) {
  ASSERT_EQ(default_unit_facts().size(), 23u);
  for (unsigned category = 1; category <= 23; ++category) {
    const Units units = Base::default_units(category);
    EXPECT_EQ(Base::units_text(units), default_unit_facts()[category - 1]);
    EXPECT_EQ(Base::category_of(units), category);
  }
}

}  // namespace
