#include "expression/node.h"

#include <array>
#include <cmath>

#include "expression/gamma.h"

namespace Expression {
namespace {

// By operator number. "sqr" and "log10" are not the names that the language reads.
constexpr std::array<const char*, 16> UnaryPrefix{
    "-(",    "sqr(",  "sqrt(", "tan(",  "cos(", "sin(", "atan(",  "acos(",
    "asin(", "tanh(", "cosh(", "sinh(", "exp(", "log(", "log10(", "tgamma("};

constexpr std::array<const char*, 6> BinaryInfix{" ^ ", " * ", " / ", " + ", " - ", ", "};

}  // namespace

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
  value_ = apply(child_->eval(no_variable()));
  folded_ = true;
  return true;
}

double UnaryOp::eval(const Base::Quantity& variable) const {
  return folded_ ? value_ : apply(child_->eval(variable));
}

double UnaryOp::apply(double x) const {
  switch (op_) {
    case Unary::negate:
      return -x;
    case Unary::square:
      return x * x;
    case Unary::square_root:
      return std::sqrt(x);
    case Unary::tangent:
      return std::tan(x);
    case Unary::cosine:
      return std::cos(x);
    case Unary::sine:
      return std::sin(x);
    case Unary::arc_tangent:
      return std::atan(x);
    case Unary::arc_cosine:
      return std::acos(x);
    case Unary::arc_sine:
      return std::asin(x);
    case Unary::hyperbolic_tangent:
      return std::tanh(x);
    case Unary::hyperbolic_cosine:
      return std::cosh(x);
    case Unary::hyperbolic_sine:
      return std::sinh(x);
    case Unary::exponential:
      return std::exp(x);
    case Unary::natural_logarithm:
      return std::log(x);
    case Unary::decimal_logarithm:
      return std::log10(x);
    case Unary::gamma:
      return tgamma(x);
    default:
      throw std::string("Unknown unary operator in eval");
  }
}

void UnaryOp::print(std::ostream& out) const {
  out << (op_ < UnaryPrefix.size() ? UnaryPrefix[op_] : "(");
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
    result = node->apply(result, node->right_->eval(variable));
  }
  return result;
}

// In two steps, since the arguments of one call are evaluated in any order.
double BinaryOp::compute(const Base::Quantity& variable) const {
  const double left = left_->eval(variable);
  return apply(left, right_->eval(variable));
}

double BinaryOp::apply(double left, double right) const {
  switch (op_) {
    case Binary::power:
      return std::pow(left, right);
    case Binary::times:
      return left * right;
    case Binary::divide:
      return left / right;
    case Binary::plus:
      return left + right;
    case Binary::minus:
      return left - right;
    case Binary::arc_tangent:
      return std::atan2(left, right);
    default:
      throw std::string("Unknown binary operator in eval");
  }
}

void BinaryOp::print(std::ostream& out) const {
  const BinaryOp* node = this;
  for (;; node = node->below_) {
    out << (node->op_ == Binary::arc_tangent ? "atan2(" : "(");
    if (node->below_ == nullptr) break;
  }
  node->left_->print(out);
  for (;; node = node->above_) {
    if (node->op_ < BinaryInfix.size()) out << BinaryInfix[node->op_];
    node->right_->print(out);
    out << ')';
    if (node == this) return;
  }
}

void BinaryOp::destroy_children() {
  right_.reset();
  // Each link leaves the chain before it is freed, so that freeing never descends.
  while (left_ != nullptr) {
    const std::unique_ptr<Node> link = std::move(left_);
    if (below_ == nullptr) return;
    left_ = std::move(below_->left_);
    below_ = below_->below_;
  }
}

}  // namespace Expression
