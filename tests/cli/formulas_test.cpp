// `kelpbox formulas`: what it lists is what the library evaluates.
#include <fmt/format.h>
#include <gtest/gtest.h>

#include <cmath>
#include <fstream>
#include <functional>
#include <map>
#include <nlohmann/json.hpp>
#include <set>
#include <string>

#include "base/units.h"
#include "cli/commands.h"
#include "cli/formula_parts.h"
#include "cli/wrapped_text.h"
#include "expression/function.h"
#include "text_console.h"

namespace {

double value_of(const std::string& formula) {
  Expression::Function function(formula);
  Base::Params none;
  Base::Params used;
  function.bind(none, used);
  return function.evaluate(Base::Quantity(0.0, Base::Units{1, 0})).value;
}

// At an argument between 0 and 1 at which all functions are defined.
const std::map<std::string, std::function<double(double)>> of_one{
    {"square", [](double a) { return a * a; }},
    {"sqrt", [](double a) { return std::sqrt(a); }},
    {"exp", [](double a) { return std::exp(a); }},
    {"log", [](double a) { return std::log(a); }},
    {"lg10", [](double a) { return std::log10(a); }},
    {"sin", [](double a) { return std::sin(a); }},
    {"cos", [](double a) { return std::cos(a); }},
    {"tan", [](double a) { return std::tan(a); }},
    {"asin", [](double a) { return std::asin(a); }},
    {"acos", [](double a) { return std::acos(a); }},
    {"atan", [](double a) { return std::atan(a); }},
    {"sinh", [](double a) { return std::sinh(a); }},
    {"cosh", [](double a) { return std::cosh(a); }},
    {"tanh", [](double a) { return std::tanh(a); }},
    {"tgamma", [](double a) { return std::tgamma(a); }},
};
const std::map<std::string, std::function<double(double, double)>> of_two{
    {"atan2", [](double a, double b) { return std::atan2(a, b); }},
    {"pow", [](double a, double b) { return std::pow(a, b); }},
};

TEST(Formulas, EveryListedFunctionIsEvaluatedByTheLibrary) {
  for (const Cli::FormulaFunction& function : Cli::formula_functions()) {
    const std::string name(function.name);
    if (function.example.empty()) continue;
    ASSERT_EQ(of_one.count(name) + of_two.count(name), 1U) << name;
    if (function.arguments == 1) {
      EXPECT_NEAR(value_of(name + "(0.3)"), of_one.at(name)(0.3), 1e-12) << name;
    } else {
      EXPECT_NEAR(value_of(name + "(0.3,2.5)"), of_two.at(name)(0.3, 2.5), 1e-12) << name;
    }
  }
}

TEST(Formulas, WhatIsListedAsNotEvaluatedIsNot) {
  for (const Cli::FormulaFunction& function : Cli::formula_functions()) {
    if (!function.example.empty()) continue;
    EXPECT_THROW(value_of(std::string(function.name) + "(5,2)"), std::string) << function.name;
  }
}

TEST(Formulas, EveryExampleHasTheValueShown) {
  for (const Cli::FormulaFunction& function : Cli::formula_functions()) {
    if (function.example.empty()) continue;
    EXPECT_EQ(fmt::format("{:.10g}", value_of(std::string(function.example))), function.value)
        << function.example;
  }
  for (const Cli::FormulaOperator& op : Cli::formula_operators()) {
    EXPECT_EQ(fmt::format("{:.10g}", value_of(std::string(op.example))), op.value) << op.example;
  }
  for (const Cli::FormulaConstant& constant : Cli::formula_constants()) {
    EXPECT_EQ(fmt::format("{:.10g}", value_of(std::string(constant.name))), constant.value);
  }
}

TEST(Formulas, ListsTheNamesThatTheScannerKnows) {
  std::ifstream scanner(TEST_ROOT "/../src/expression/expression_scan.l");
  ASSERT_TRUE(scanner);
  // A rule begins with a name in quotation marks and ends in what it returns.
  std::set<std::string> known;
  for (std::string line; std::getline(scanner, line);) {
    if (line.size() < 2 || line[0] != '"' || line[1] < 'a' || line[1] > 'z') continue;
    if (line.find(" return function") == line.npos && line.find(" return number") == line.npos) {
      continue;
    }
    known.insert(line.substr(1, line.find('"', 1) - 1));
  }
  std::set<std::string> listed;
  for (const auto& function : Cli::formula_functions()) listed.emplace(function.name);
  for (const auto& constant : Cli::formula_constants()) listed.emplace(constant.name);
  EXPECT_EQ(listed, known);
}

TEST(Formulas, EveryListedUnitResolves) {
  Testing::TextConsole text;
  text.console.json = true;
  ASSERT_EQ(Cli::formulas(text.console), 0);
  const auto json = nlohmann::json::parse(text.out());
  EXPECT_EQ(json["units"].size(),
            22U);  // the kinds of docs/native-names.md except the plain number
  std::size_t units = 0;
  for (const auto& names : json["units"]) {
    for (const auto& name : names) {
      EXPECT_NO_THROW(Base::resolve_units(name.get<std::string>())) << name;
      ++units;
    }
  }
  EXPECT_EQ(units, 88U + 7U);  // the table without its first two rows, and the aliases
}

TEST(Formulas, ThePageFitsATerminal) {
  Testing::TextConsole text;
  ASSERT_EQ(Cli::formulas(text.console), 0);
  EXPECT_EQ(text.err(), "");
  std::istringstream page(text.out());
  for (std::string line; std::getline(page, line);) {
    EXPECT_LE(Cli::characters(line), 100U) << line;
    EXPECT_EQ(line.find_last_not_of(' ') + 1, line.size()) << line;
  }
}

}  // namespace
