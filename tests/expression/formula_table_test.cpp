// Runs the cases of formulas.txt and failures.txt; each file describes its format.
#include <gtest/gtest.h>

#include <cmath>
#include <cstdlib>
#include <fstream>
#include <sstream>
#include <string>
#include <vector>

#include "base/params.h"
#include "expression/function.h"
#include "support/output.h"
#include "support/thrown.h"
#include "testutil.h"

namespace Expression {
namespace {

using Testing::printed;
using Testing::thrown;

struct Case {
  int line;
  std::vector<std::string> columns;
};

void PrintTo(const Case& c, std::ostream* out) {
  *out << "line " << c.line << ": " << c.columns[0];
}

std::string trimmed(const std::string& text) {
  const std::size_t first = text.find_first_not_of(' ');
  if (first == std::string::npos) return "";
  return text.substr(first, text.find_last_not_of(' ') - first + 1);
}

std::vector<Case> cases(const std::string& file) {
  std::ifstream in(std::string(TEST_ROOT "/expression/") + file);
  std::vector<Case> result;
  std::string text;
  for (int line = 1; std::getline(in, text); ++line) {
    if (trimmed(text).empty() || text[0] == '#') continue;
    Case c{line, {}};
    std::istringstream columns(text);
    for (std::string column; std::getline(columns, column, '|');) {
      c.columns.push_back(trimmed(column));
    }
    result.push_back(c);
  }
  return result;
}

std::string name_of(const testing::TestParamInfo<Case>& info) {
  return "Line" + std::to_string(info.param.line);
}

Base::Params parameters() {
  Base::Params params;
  params.insert("x", 3.0, "");
  params.insert("y", 0.5, "");
  params.insert("pie", 7.0, "");
  params.insert("sinx", 8.0, "");
  params.insert("e3", 9.0, "");
  params.insert("a_1", 10.0, "");
  params.insert("depth", 4.0, "m");
  params.insert("length", 250.0, "cm");
  params.insert("period", 2.0, "min");
  params.insert("fp", 0.25, "Hz");
  params.insert("spin", 0.5, "rad/s");
  return params;
}

// Reads "1.5 Hz"; "-" means no variable.
Base::Quantity variable_of(const std::string& column) {
  if (column == "-") return quantity(0.0, "");
  char* end = nullptr;
  const double value = std::strtod(column.c_str(), &end);
  return quantity(value, trimmed(end));
}

class FormulaTable : public testing::TestWithParam<Case> {};

TEST_P(FormulaTable, IsReadAsListedAndHasTheListedValue) {
  const std::vector<std::string>& columns = GetParam().columns;
  ASSERT_EQ(columns.size(), 5U) << "the line needs five columns";
  const bool has_variable = columns[2] != "-";
  const double expected = std::strtod(columns[3].c_str(), nullptr);

  Function function(columns[0]);
  EXPECT_EQ(written(function), columns[1]);
  EXPECT_EQ(Base::units_text(function.units()), columns[4] == "-" ? "" : columns[4]);

  Base::Params used;
  EXPECT_EQ(function.bind(parameters(), used), !has_variable);
  const double result = function.evaluate(variable_of(columns[2])).value;
  if (std::isnan(expected)) {
    EXPECT_TRUE(std::isnan(result)) << result;
  } else if (std::isinf(expected)) {
    EXPECT_EQ(result, expected);
  } else {
    EXPECT_NEAR(result, expected, 1e-12 * std::fabs(expected));
  }
  if (!has_variable && !std::isnan(expected)) {
    EXPECT_EQ(function.constant().value, result);
  }
}

INSTANTIATE_TEST_SUITE_P(Formulas, FormulaTable, testing::ValuesIn(cases("formulas.txt")), name_of);

class FailureTable : public testing::TestWithParam<Case> {};

TEST_P(FailureTable, FailsWithTheListedMessage) {
  const std::vector<std::string>& columns = GetParam().columns;
  ASSERT_EQ(columns.size(), 2U) << "the line needs two columns";
  std::string message;
  const std::string output = printed([&] {
    message = thrown([&] {
      Function function(columns[0]);
      Base::Params used;
      function.bind(parameters(), used);
      function.evaluate(quantity(1.0, "Hz"));
    });
  });
  EXPECT_EQ(message, columns[1]);
  const bool syntax = columns[1].starts_with("Error while parsing expression ::");
  EXPECT_EQ(output, syntax ? "Helpsyntax error\n" : "");
}

INSTANTIATE_TEST_SUITE_P(Failures, FailureTable, testing::ValuesIn(cases("failures.txt")), name_of);

// An empty table would run no tests and pass.
TEST(FormulaTables, HaveCases) {
  EXPECT_GT(cases("formulas.txt").size(), 80U);
  EXPECT_GT(cases("failures.txt").size(), 50U);
}

}  // namespace
}  // namespace Expression
