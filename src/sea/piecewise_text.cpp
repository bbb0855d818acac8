#include "sea/piecewise_text.h"

#include <cstddef>
#include <cstdint>
#include <initializer_list>
#include <utility>

#include "base/compose.h"

namespace Synthesis {

namespace {

namespace Category = Base::Category;
using Base::UnitCategory;

std::uint32_t row_of(UnitCategory category) { return Base::default_units(category).row; }

bool returns(const Expression::Function& formula, UnitCategory category) {
  return Base::compatible(formula.units(), row_of(category));
}

Formulas parse_pieces(const std::vector<std::string>& pieces) {
  Formulas formulas;
  formulas.reserve(pieces.size());
  for (const std::string& piece : pieces) formulas.emplace_back(piece);
  return formulas;
}

// The first of the categories that the formula at `first` returns. Every second formula from there
// on must return it too.
UnitCategory common_units(const Formulas& formulas, std::size_t first,
                          std::initializer_list<UnitCategory> categories, const char* unsupported,
                          const char* inconsistent) {
  UnitCategory found = Category::error;
  for (UnitCategory category : categories) {
    if (returns(formulas[first], category)) {
      found = category;
      break;
    }
  }
  if (found == Category::error) throw std::string(unsupported);
  for (std::size_t i = first + 2; i < formulas.size(); i += 2) {
    if (!returns(formulas[i], found)) throw std::string(inconsistent);
  }
  return found;
}

UnitCategory find_limit_units(const Formulas& formulas) {
  return common_units(formulas, 0, {Category::frequency, Category::time}, "Unsupported limit units",
                      "Inconsistent limit units");
}

UnitCategory find_output_units(const Formulas& formulas) {
  return common_units(formulas, 1, {Category::variance, Category::length_time, Category::length},
                      "Unsupported output units", "Inconsistent output units");
}

// Constant functions take anything. When all are constant the result is time, whatever the limits.
UnitCategory find_input_units(Formulas& formulas) {
  UnitCategory input = Category::error;
  for (std::size_t i = 1; i < formulas.size(); i += 2) {
    if (formulas[i].is_constant()) continue;
    if (input != Category::error) {
      if (!formulas[i].compatible(row_of(input))) throw std::string("Inconsistent input units");
    } else if (formulas[i].compatible(row_of(Category::frequency))) {
      input = Category::frequency;
    } else if (formulas[i].compatible(row_of(Category::time))) {
      input = Category::time;
    } else {
      throw std::string("Unsupported input units");
    }
  }
  return input == Category::error ? Category::time : input;
}

void check_constant_limits(Formulas& formulas) {
  for (std::size_t i = 0; i < formulas.size(); i += 2) {
    if (!formulas[i].is_constant()) throw std::string("Non constant separator function");
  }
}

}  // namespace

std::vector<std::string> split_pieces(const std::string& text) {
  std::vector<std::string> pieces;
  std::size_t start = 0;
  for (std::size_t end = text.find('#'); end != std::string::npos; end = text.find('#', start)) {
    pieces.push_back(text.substr(start, end - start));
    start = end + 1;
  }
  pieces.push_back(text.substr(start));
  return pieces;
}

Piecewise parse_component_text(const std::string& text) {
  const std::vector<std::string> pieces = split_pieces(text);
  if (pieces.size() < 2) throw std::string("There must be at least 2  sub expressions");
  if (pieces.size() % 2 == 0) {
    throw std::string("There must be an odd number of sub expressions");
  }
  Formulas formulas = parse_pieces(pieces);
  PieceUnits units;
  units.limit = find_limit_units(formulas);
  units.output = find_output_units(formulas);
  units.input = find_input_units(formulas);
  check_constant_limits(formulas);
  return {std::move(formulas), Piecewise::Begins::with_limit, units};
}

Piecewise parse_modifier_text(const std::string& text, UnitCategory limit_units,
                              UnitCategory output_units) {
  const PieceUnits units{limit_units, limit_units, output_units};
  if (text.empty()) return {{}, Piecewise::Begins::with_function, units};
  std::vector<std::string> pieces = split_pieces(text);
  if (pieces.back().empty()) pieces.pop_back();
  Formulas formulas = parse_pieces(pieces);
  if (formulas.size() % 2 == 0) {
    throw std::string("Even number of functions in modifier expression");
  }
  for (std::size_t i = 0; i < formulas.size(); i += 2) {
    if (!returns(formulas[i], output_units)) {
      throw Base::compose("Incorrect output units in expression ", i, " ", formulas[i].units(),
                          ", ", output_units);
    }
  }
  for (std::size_t i = 1; i < formulas.size(); i += 2) {
    if (!returns(formulas[i], limit_units)) {
      throw Base::compose("Incorrect limit units in expression ", formulas[i].units(), ", ",
                          limit_units);
    }
  }
  return {std::move(formulas), Piecewise::Begins::with_function, units};
}

}  // namespace Synthesis
