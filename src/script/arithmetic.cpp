// Arithmetic of the literals in a script.

#include <bit>

#include "script/division.h"
#include "script/variable.h"

namespace Script {
namespace {

std::int32_t wrapped(std::uint32_t bits) { return std::bit_cast<std::int32_t>(bits); }
std::uint32_t bits(std::int32_t number) { return std::bit_cast<std::uint32_t>(number); }

}  // namespace

bool Variable::is_literal_number() const {
  return type_ == VarType::integer || type_ == VarType::real;
}

double Variable::widened() const {
  return type_ == VarType::integer ? value_.integer : value_.real;
}

void Variable::require_numbers(const Variable& left, const Variable& right,
                               const char* left_message, const char* right_message) {
  if (!left.is_literal_number()) throw left_message;
  if (!right.is_literal_number()) throw right_message;
}

bool Variable::both_integers(const Variable& left, const Variable& right) {
  return left.type_ == VarType::integer && right.type_ == VarType::integer;
}

Variable operator+(const Variable& left, const Variable& right) {
  Variable::require_numbers(left, right, "Unexpected type for lhs of + operator",
                            "Unexpected type for rhs value of + operator");
  if (Variable::both_integers(left, right)) {
    return Variable(wrapped(bits(left.value_.integer) + bits(right.value_.integer)));
  }
  return Variable(left.widened() + right.widened());
}

Variable operator-(const Variable& left, const Variable& right) {
  Variable::require_numbers(left, right, "Unexpected type for lhs of - operator",
                            "Unexpected type for rhs value of - operator");
  if (Variable::both_integers(left, right)) {
    return Variable(wrapped(bits(left.value_.integer) - bits(right.value_.integer)));
  }
  return Variable(left.widened() - right.widened());
}

Variable operator*(const Variable& left, const Variable& right) {
  Variable::require_numbers(left, right, "Unexpected type for lhs of * operator",
                            "Unexpected type for rhs value of * operator");
  if (Variable::both_integers(left, right)) {
    return Variable(wrapped(bits(left.value_.integer) * bits(right.value_.integer)));
  }
  return Variable(left.widened() * right.widened());
}

Variable operator/(const Variable& left, const Variable& right) {
  Variable::require_numbers(left, right, "Unexpected type for lhs of / operator",
                            "Unexpected type for rhs value of / operator");
  if (Variable::both_integers(left, right)) {
    return Variable(quotient(left.value_.integer, right.value_.integer));
  }
  return Variable(left.widened() / right.widened());
}

Variable Variable::operator-() const {
  if (type_ == VarType::integer) return Variable(wrapped(0u - bits(value_.integer)));
  // On purpose the same message as for addition.
  if (type_ != VarType::real) throw "Unexpected type for rhs value of + operator";
  return Variable(-value_.real);
}

}  // namespace Script
