// What is known of each unit apart from the library: its factor as it is written down, and the
// value that this factor is a rounding of, from the definitions of the units.
#ifndef KELPBOX_TESTS_BASE_UNIT_FACTS_H_
#define KELPBOX_TESTS_BASE_UNIT_FACTS_H_

#include <string>
#include <vector>

struct UnitFact {
  std::string name;
  std::vector<std::string> more_names;
  unsigned category;
  unsigned power;
  std::string written;
  double defined;

  double factor() const { return std::stod(written); }
  // Half a unit of the last figure written down.
  double tolerance() const;
};

// In order of rows, from row 0.
const std::vector<UnitFact>& unit_facts();

struct PrefixFact {
  std::string letter;
  double multiplier;
};

const std::vector<PrefixFact>& prefix_facts();

// The default units of the categories, from category 1.
const std::vector<std::string>& default_unit_facts();

#endif  // KELPBOX_TESTS_BASE_UNIT_FACTS_H_
