// Reference data for each unit, independent of the library: the published factor as it is written,
// and the unrounded value that follows from the definition of the unit.
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
  // Half a unit in the last written digit.
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
