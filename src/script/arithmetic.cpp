// Arithmetic of the literals in a script.

#include <csignal>
#include <cstdlib>

#include "script/variable.h"

namespace Script {
namespace {

std::int32_t wrapped(std::uint32_t bits) { return std::bit_cast<std::int32_t>(bits); }
std::uint32_t bits(std::int32_t number) { return std::bit_cast<std::uint32_t>(number); }

std::int32_t quotient(std::int32_t left, std::int32_t right) {
  if (right == 0) {
    // On purpose not a failure that a caller sees: a script that divides an integer by zero
    // stops the process, as the hardware would.
    std::raise(SIGFPE);
    std::abort();
  }
  // The one quotient that does not fit wraps to its own dividend.
  if (right == -1) return wrapped(0u - bits(left));
  return left / right;
}

}  // namespace

bool Variable::is_literal_number() const {
  return type_ == VarType::integer || type_ == VarType::real;
}

double Variable::widened() const {
  return type_ == VarType::integer ? value_.integer : value_.real;
}

Variable operator+(const Variable& left, const Variable& right) {
  if (!left.is_literal_number()) throw "Unexpected type for lhs of + operator";
  if (!right.is_literal_number()) throw "Unexpected type for rhs value of + operator";
  if (left.type_ == VarType::integer && right.type_ == VarType::integer) {
    return Variable(wrapped(bits(left.value_.integer) + bits(right.value_.integer)));
  }
  return Variable(left.widened() + right.widened());
}

Variable operator-(const Variable& left, const Variable& right) {
  if (!left.is_literal_number()) throw "Unexpected type for lhs of - operator";
  if (!right.is_literal_number()) throw "Unexpected type for rhs value of - operator";
  if (left.type_ == VarType::integer && right.type_ == VarType::integer) {
    return Variable(wrapped(bits(left.value_.integer) - bits(right.value_.integer)));
  }
  return Variable(left.widened() - right.widened());
}

Variable operator*(const Variable& left, const Variable& right) {
  if (!left.is_literal_number()) throw "Unexpected type for lhs of * operator";
  if (!right.is_literal_number()) throw "Unexpected type for rhs value of * operator";
  if (left.type_ == VarType::integer && right.type_ == VarType::integer) {
    return Variable(wrapped(bits(left.value_.integer) * bits(right.value_.integer)));
  }
  return Variable(left.widened() * right.widened());
}

Variable operator/(const Variable& left, const Variable& right) {
  if (!left.is_literal_number()) throw "Unexpected type for lhs of / operator";
  if (!right.is_literal_number()) throw "Unexpected type for rhs value of / operator";
  if (left.type_ == VarType::integer && right.type_ == VarType::integer) {
    return Variable(quotient(left.value_.integer, right.value_.integer));
  }
  return Variable(left.widened() / right.widened());
}

Variable Variable::operator-() const {
  if (type_ == VarType::integer) return Variable(wrapped(0u - bits(value_.integer)));
  // The text of addition, on purpose: the two have always shared it.
  if (type_ != VarType::real) throw "Unexpected type for rhs value of + operator";
  return Variable(-value_.real);
}

}  // namespace Script
