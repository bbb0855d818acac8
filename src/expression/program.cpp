#include "expression/program.h"

#include <array>
#include <cmath>

namespace Expression {
namespace {

// Above the nesting of any formula that the parser takes.
constexpr std::size_t most_aside = 256;

// What can be added to any number without a change, even to -0.
constexpr double no_shift = -0.0;

bool is_arithmetic(OperatorNumber op) { return op >= Binary::times && op <= Binary::minus; }

}  // namespace

void Program::constant(double value) { add(make_constant, 0, value); }

// Most formulas read the variable in one unit, and many begin with it. It is then converted once,
// and needs no step at the beginning.
void Program::variable(double factor) {
  if (steps_.empty()) {
    factor_ = factor;
    starts_ = true;
  } else {
    add(make_variable, 0, factor);
  }
}

void Program::unary(OperatorNumber op) { add(apply_one, op); }

// A constant is subtracted by adding its negative, and a number is subtracted from a constant by
// adding the constant to its negative: both have the same bits. NaN keeps its sign in a difference,
// and messages show it.
void Program::binary_with(OperatorNumber op, double right) {
  switch (op) {
    case Binary::times:
      return scale(right, no_shift);
    case Binary::plus:
      return scale(1.0, right);
    case Binary::minus:
      return scale(1.0, std::isnan(right) ? right : -right);
    default:
      return add(with_constant, op, right);
  }
}

void Program::binary_from(OperatorNumber op, double left) {
  switch (op) {
    case Binary::times:
      return scale(left, no_shift);
    case Binary::plus:
      return scale(1.0, left);
    case Binary::minus:
      return scale(-1.0, left);
    default:
      return add(from_constant, op, left);
  }
}

void Program::scale(double by, double shift) {
  const bool follows_product = !steps_.empty() && steps_.back().code == scale_and_shift &&
                               steps_.back().shift == 0.0 && std::signbit(steps_.back().shift);
  // A sum after a product belongs to the same step. A change of sign does not round.
  if (follows_product && std::abs(by) == 1.0) {
    steps_.back().number *= by;
    steps_.back().shift = shift;
  } else {
    steps_.push_back({scale_and_shift, 0, by, shift});
  }
}

bool Program::set_aside() {
  if (aside_ == most_aside) return false;
  ++aside_;
  add(put_aside);
  return true;
}

void Program::binary(OperatorNumber op) {
  --aside_;
  const std::size_t count = steps_.size();
  const Step last = steps_[count - 1];
  // The variable alone at the right needs nothing set aside. It is then the only step after that.
  if (last.code == make_variable && starts_ && last.number == factor_) {
    steps_.resize(count - 2);
    add(with_variable, op);
  } else {
    add(with_aside, op);
  }
}

void Program::finish(double factor) {
  if (factor != 1.0) scale(factor, no_shift);
  add(return_result);
}

void Program::add(Kind kind, OperatorNumber op, double number) {
  const bool written_out = kind >= with_constant && is_arithmetic(op);
  steps_.push_back({kind + (written_out ? op : 0), op, number, no_shift});
}

double Program::run_from(const Step* step, double x, double variable, double current) {
  std::array<double, most_aside> room;
  double* aside = room.data();
  for (;; ++step) {
    switch (step->code) {
      case make_constant:
        current = step->number;
        break;
      case make_variable:
        current = x * step->number;
        break;
      case put_aside:
        *aside++ = current;
        break;
      case with_constant + Binary::divide:
        current = current / step->number;
        break;
      case from_constant + Binary::divide:
        current = step->number / current;
        break;
      case with_variable + Binary::times:
        current = current * variable;
        break;
      case with_variable + Binary::divide:
        current = current / variable;
        break;
      case with_variable + Binary::plus:
        current = current + variable;
        break;
      case with_variable + Binary::minus:
        current = current - variable;
        break;
      case with_aside + Binary::times:
        current = *--aside * current;
        break;
      case with_aside + Binary::divide:
        current = *--aside / current;
        break;
      case with_aside + Binary::plus:
        current = *--aside + current;
        break;
      case with_aside + Binary::minus:
        current = *--aside - current;
        break;
      // The other operators take so long that a second choice does not count.
      case apply_one:
        current = apply_unary(step->op, current);
        break;
      case with_constant:
        current = apply_binary(step->op, current, step->number);
        break;
      case from_constant:
        current = apply_binary(step->op, step->number, current);
        break;
      case with_variable:
        current = apply_binary(step->op, current, variable);
        break;
      case with_aside:
        current = apply_binary(step->op, *--aside, current);
        break;
      case scale_and_shift:
        current = current * step->number + step->shift;
        break;
      default:  // return_result
        return current;
    }
  }
}

}  // namespace Expression
