// How the tree of a formula becomes a program of steps. A bound tree has its constant parts folded,
// so only the rest becomes steps.
#include "expression/node.h"

namespace Expression {

bool Value::compile(Base::Units variable, Program& out) const {
  out.variable(Base::factor(variable, units_));
  return true;
}

std::optional<double> Parameter::known() const {
  return bound_ ? std::optional(value_) : std::nullopt;
}

std::optional<double> UnaryOp::known() const {
  return folded_ ? std::optional(value_) : std::nullopt;
}

bool UnaryOp::compile(Base::Units variable, Program& out) const {
  if (const std::optional<double> value = child_->known()) {
    out.constant(*value);
  } else if (!child_->compile(variable, out)) {
    return false;
  }
  out.unary(op_);
  return true;
}

std::optional<double> BinaryOp::known() const {
  return folded_ ? std::optional(value_) : std::nullopt;
}

bool BinaryOp::compile(Base::Units variable, Program& out) const {
  const BinaryOp* node = this;
  while (node->below_ != nullptr && !node->below_->folded_) node = node->below_;
  std::optional<double> left = node->left_->known();
  if (!left && !node->left_->compile(variable, out)) return false;
  for (;; node = node->above_) {
    if (!node->compile_right(variable, left, out)) return false;
    if (node == this) return true;
    left.reset();
  }
}

bool BinaryOp::compile_right(Base::Units variable, std::optional<double> left, Program& out) const {
  if (const std::optional<double> right = right_->known()) {
    if (left) out.constant(*left);
    out.binary_with(op_, *right);
    return true;
  }
  if (left) {
    if (!right_->compile(variable, out)) return false;
    out.binary_from(op_, *left);
    return true;
  }
  if (!out.set_aside() || !right_->compile(variable, out)) return false;
  out.binary(op_);
  return true;
}

}  // namespace Expression
