#include "sea/piecewise.h"

#include <cstddef>
#include <initializer_list>

#include "base/compose.h"

namespace Synthesis {

namespace {

namespace Category = Base::Category;
using Base::UnitCategory;

std::uint32_t row_of(UnitCategory category) { return Base::default_units(category).row; }

bool returns(const Expression::Function& function, UnitCategory category) {
  return Base::compatible(function.units(), row_of(category));
}

// The first of the categories that the function at `first` returns; every second function from
// there on has to return it too.
UnitCategory common_units(const Functions& functions, std::size_t first,
                          std::initializer_list<UnitCategory> categories, const char* unsupported,
                          const char* inconsistent) {
  UnitCategory found = Category::error;
  for (UnitCategory category : categories) {
    if (returns(functions[first], category)) {
      found = category;
      break;
    }
  }
  if (found == Category::error) throw std::string(unsupported);
  for (std::size_t i = first + 2; i < functions.size(); i += 2) {
    if (!returns(functions[i], found)) throw std::string(inconsistent);
  }
  return found;
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

Functions parse_pieces(const std::vector<std::string>& pieces) {
  Functions functions;
  functions.reserve(pieces.size());
  for (const std::string& piece : pieces) functions.emplace_back(piece);
  return functions;
}

Functions parse_component_text(const std::string& text) {
  const std::vector<std::string> pieces = split_pieces(text);
  if (pieces.size() < 2) throw std::string("There must be at least 2  sub expressions");
  if (pieces.size() % 2 == 0) {
    throw std::string("There must be an odd number of sub expressions");
  }
  return parse_pieces(pieces);
}

UnitCategory find_limit_units(const Functions& functions) {
  return common_units(functions, 0, {Category::frequency, Category::time},
                      "Unsupported limit units", "Inconsistent limit units");
}

UnitCategory find_output_units(const Functions& functions) {
  return common_units(functions, 1, {Category::variance, Category::length_time, Category::length},
                      "Unsupported output units", "Inconsistent output units");
}

UnitCategory find_input_units(Functions& functions) {
  UnitCategory input = Category::unit;
  for (std::size_t i = 1; i < functions.size(); i += 2) {
    if (functions[i].is_constant()) continue;
    if (input != Category::unit) {
      if (!functions[i].compatible(row_of(input))) throw std::string("Inconsistent input units");
    } else if (functions[i].compatible(row_of(Category::frequency))) {
      input = Category::frequency;
    } else if (functions[i].compatible(row_of(Category::time))) {
      input = Category::time;
    } else {
      throw std::string("Unsupported input units");
    }
  }
  return input == Category::unit ? Category::time : input;
}

void check_constant_limits(Functions& functions) {
  for (std::size_t i = 0; i < functions.size(); i += 2) {
    if (!functions[i].is_constant()) throw std::string("Non constant separator function");
  }
}

Functions parse_modifier_text(const std::string& text, UnitCategory limit_units,
                              UnitCategory output_units) {
  if (text.empty()) return {};
  std::vector<std::string> pieces = split_pieces(text);
  if (pieces.back().empty()) pieces.pop_back();
  Functions functions = parse_pieces(pieces);
  if (functions.size() % 2 == 0) {
    throw std::string("Even number of functions in modifier expression");
  }
  for (std::size_t i = 0; i < functions.size(); i += 2) {
    if (!returns(functions[i], output_units)) {
      throw Base::compose("Incorrect output units in expression ", i, " ", functions[i].units(),
                          ", ", output_units);
    }
  }
  for (std::size_t i = 1; i < functions.size(); i += 2) {
    if (!returns(functions[i], limit_units)) {
      throw Base::compose("Incorrect limit units in expression ", functions[i].units(), ", ",
                          limit_units);
    }
  }
  return functions;
}

}  // namespace Synthesis
