#include "expression/node.h"

namespace Expression {

Base::Quantity no_variable() {
  return {0.0, Base::default_units(Base::Category::unit), Base::ValueState{}};
}

bool Value::compatible(std::uint32_t unit_row) const { return Base::compatible(units_, unit_row); }

double Value::eval(const Base::Quantity& variable) const { return variable.get(units_); }

void Value::print(std::ostream& out) const { out << "$[" << units_ << ']'; }

bool Parameter::declare(Base::Params& out) const {
  out.declare(name_, units_);
  return true;
}

bool Parameter::bind(const Base::Params& source, Base::Params& target) {
  value_ = target.merge(*source.find(name_)).get(units_);
  bound_ = true;
  return true;
}

double Parameter::eval(const Base::Quantity&) const {
  if (!bound_) throw "Unset parameter" + name_;
  return value_;
}

void Parameter::print(std::ostream& out) const { out << name_ << '[' << units_ << ']'; }

bool UnaryOp::bind(const Base::Params& source, Base::Params& target) {
  if (!child_->bind(source, target)) return false;
  value_ = apply_unary(op_, child_->eval(no_variable()));
  folded_ = true;
  return true;
}

double UnaryOp::eval(const Base::Quantity& variable) const {
  return folded_ ? value_ : apply_unary(op_, child_->eval(variable));
}

void UnaryOp::print(std::ostream& out) const {
  out << unary_prefix(op_);
  child_->print(out);
  out << ')';
}

BinaryOp::BinaryOp(OperatorNumber op, std::unique_ptr<Node> left, std::unique_ptr<Node> right)
    : op_(op),
      left_(std::move(left)),
      right_(std::move(right)),
      below_(dynamic_cast<BinaryOp*>(left_.get())) {
  if (below_ != nullptr) below_->above_ = this;
}

BinaryOp* BinaryOp::lowest() const {
  auto* node = const_cast<BinaryOp*>(this);
  while (node->below_ != nullptr) node = node->below_;
  return node;
}

bool BinaryOp::declare(Base::Params& out) const {
  const BinaryOp* node = lowest();
  bool fixed = node->left_->declare(out);
  for (;; node = node->above_) {
    const bool right_fixed = node->right_->declare(out);
    fixed = fixed && right_fixed;
    if (node == this) return fixed;
  }
}

bool BinaryOp::bind(const Base::Params& source, Base::Params& target) {
  BinaryOp* node = lowest();
  bool fixed = node->left_->bind(source, target);
  for (;; node = node->above_) {
    const bool right_fixed = node->right_->bind(source, target);
    fixed = fixed && right_fixed;
    if (fixed) {
      node->value_ = node->compute(no_variable());
      node->folded_ = true;
    }
    if (node == this) return fixed;
  }
}

bool BinaryOp::is_constant() const {
  const BinaryOp* node = lowest();
  if (!node->left_->is_constant()) return false;
  for (;; node = node->above_) {
    if (!node->right_->is_constant()) return false;
    if (node == this) return true;
  }
}

bool BinaryOp::compatible(std::uint32_t unit_row) const {
  const BinaryOp* node = lowest();
  if (!node->left_->compatible(unit_row)) return false;
  for (;; node = node->above_) {
    if (!node->right_->compatible(unit_row)) return false;
    if (node == this) return true;
  }
}

double BinaryOp::eval(const Base::Quantity& variable) const {
  const BinaryOp* node = this;
  while (!node->folded_ && node->below_ != nullptr) node = node->below_;
  double result = node->folded_ ? node->value_ : node->compute(variable);
  while (node != this) {
    node = node->above_;
    result = apply_binary(node->op_, result, node->right_->eval(variable));
  }
  return result;
}

// In two steps, since the language does not fix the order in which arguments are evaluated.
double BinaryOp::compute(const Base::Quantity& variable) const {
  const double left = left_->eval(variable);
  return apply_binary(op_, left, right_->eval(variable));
}

void BinaryOp::print(std::ostream& out) const {
  const BinaryOp* node = this;
  for (;; node = node->below_) {
    out << binary_prefix(node->op_);
    if (node->below_ == nullptr) break;
  }
  node->left_->print(out);
  for (;; node = node->above_) {
    out << binary_infix(node->op_);
    node->right_->print(out);
    out << ')';
    if (node == this) return;
  }
}

void BinaryOp::destroy_children() {
  right_.reset();
  // Each link is taken off the chain before it is freed, so that freeing does not recurse.
  while (left_ != nullptr) {
    const std::unique_ptr<Node> link = std::move(left_);
    if (below_ == nullptr) return;
    left_ = std::move(below_->left_);
    below_ = below_->below_;
  }
}

}  // namespace Expression
