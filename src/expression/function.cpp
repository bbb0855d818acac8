#include "expression/function.h"

#include <ostream>
#include <sstream>
#include <string_view>

#include "base/streams.h"
#include "expression/node.h"
#include "expression/parser.h"
#include "expression/scanner.h"
#include "expression_parse.hpp"

namespace Expression {
namespace {

constexpr std::string_view syntax_error = "ExpressionParser error::";
constexpr std::size_t longest_token = 1048576;
constexpr std::size_t brackets = 2;  // of a UNITS token

// The word for a token of unlimited length in messages. Null for other tokens.
const char* long_token_name(int kind) {
  switch (kind) {
    case CONST_VAL:
      return "number";
    case PARAMETER:
      return "name";
    case UNITS:
      return "unit";
    default:
      return nullptr;
  }
}

// Enough of a formula to recognise it in a message.
std::string beginning(const std::string& formula) {
  std::size_t length = 60;  // below longest_token
  const auto continues_character = [](char byte) { return (byte & 0xC0) == 0x80; };  // in UTF-8
  while (length > 0 && continues_character(formula[length])) --length;
  return formula.substr(0, length) + "...";
}

void require_short_token(int kind, std::size_t length, const std::string& formula) {
  const char* name = long_token_name(kind);
  if (name == nullptr) return;
  if (kind == UNITS) length -= brackets;
  if (length <= longest_token) return;
  throw "Formula \"" + beginning(formula) + "\" has a " + name + " of " + std::to_string(length) +
      " characters: at most " + std::to_string(longest_token) + " can be read";
}

}  // namespace

class Function::Parser final : public ExpressionParser {
 public:
  void error(const std::string& report) override {
    Base::progress() << "Help" << report << std::endl;
    throw std::string(syntax_error) + report;
  }
};

Function::Function() = default;
Function::Function(const std::string& text) { parse(text); }
Function::~Function() = default;
Function::Function(Function&&) noexcept = default;
Function& Function::operator=(Function&&) noexcept = default;

void Function::parse(const std::string& text) {
  const std::size_t at = text.find('@');
  const Base::Units units = at == std::string::npos ? Base::default_units(Base::Category::unit)
                                                    : Base::resolve_units(text.substr(at + 1));
  const std::string expression = text.substr(0, at);

  std::istringstream in(expression);
  ExpressionScanner scanner(in);
  Parser parser;
  try {
    TokenValue value;
    int kind;
    do {
      kind = scanner.next(value);
      require_short_token(kind, static_cast<std::size_t>(scanner.YYLeng()), expression);
      parser.push(kind, value);
    } while (kind != EXPRESSION_EOF);
  } catch (const std::string& failure) {
    if (!failure.starts_with(syntax_error)) throw;
    throw "Error while parsing expression ::" + expression;
  }

  root_ = parser.tree();
  fixed_ = false;
  checked_ = false;
  value_.reset();
  units_ = units;
}

void Function::declare(Base::Params& out) const { root().declare(out); }

bool Function::bind(const Base::Params& source, Base::Params& target) {
  Node& tree = root();
  fixed_ = tree.bind(source, target);
  if (fixed_) value_ = tree.eval(no_variable());
  checked_ = true;
  return fixed_;
}

bool Function::is_constant() {
  const Node& tree = root();
  if (!checked_) {
    fixed_ = tree.is_constant();
    checked_ = true;
  }
  return fixed_;
}

bool Function::compatible(std::uint32_t unit_row) const { return root().compatible(unit_row); }

Base::Quantity Function::evaluate(const Base::Quantity& variable) const {
  return {root().eval(variable), units_, Base::ValueState{}};
}

Base::Quantity Function::constant() const {
  const Node& tree = root();
  if (!fixed_) {
    throw std::string("Trying to find the constant value of a non constant function");
  }
  // A function that was never bound has no stored value.
  return {value_ ? *value_ : tree.eval(no_variable()), units_, Base::ValueState{}};
}

bool Function::compile(Base::Units variable, Program& out) const {
  const Node& tree = root();
  const std::optional<double> value = tree.known();
  if (!value) return tree.compile(variable, out);
  out.constant(*value);
  return true;
}

void Function::print(std::ostream& out) const { root().print(out); }

Node& Function::root() const {
  if (root_ == nullptr) throw std::string("Evaluated incomplete function");
  return *root_;
}

}  // namespace Expression
