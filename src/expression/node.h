// The tree of a formula: numbers, the variable, parameters, and operators on them.
//
// A tree is bound to parameters and then evaluated for each value of the variable. Binding folds
// every part that has no variable into one number, so that evaluation works only on the rest.
// Failures are thrown as a std::string. A failed evaluation leaves the tree as it was; a failed
// bind leaves it to be bound again. Once bound, eval only reads.
//
// A chain such as 1+2+3+... leans to the left without bound, while every other kind of nesting is
// bounded by the parser's stack. BinaryOp therefore walks a chain of left operands in a loop, and
// a formula of any length is safe on a small stack.
#ifndef KELPBOX_EXPRESSION_NODE_H_
#define KELPBOX_EXPRESSION_NODE_H_

#include <cstdint>
#include <memory>
#include <ostream>
#include <string>
#include <utility>

#include "base/params.h"
#include "base/quantity.h"
#include "base/units.h"
#include "expression/operators.h"

namespace Expression {

// What a part without a variable is evaluated with: any value does.
Base::Quantity no_variable();

class Node {
 public:
  Node() = default;
  Node(const Node&) = delete;
  Node& operator=(const Node&) = delete;
  virtual ~Node() = default;

  // Announces the parameters. Returns whether the subtree has no variable.
  virtual bool declare(Base::Params& out) const = 0;
  // Reads the parameters from `source` and lists in `target` the entries that were used.
  // Returns whether the subtree's value is now fixed.
  virtual bool bind(const Base::Params& source, Base::Params& target) = 0;
  // Whether the subtree has no variable.
  virtual bool is_constant() const = 0;
  // Whether the subtree can take a variable in the units of that row.
  virtual bool compatible(std::uint32_t unit_row) const = 0;
  virtual double eval(const Base::Quantity& variable) const = 0;
  virtual void print(std::ostream& out) const = 0;
  // Frees what stands below. The node can only be destroyed after that.
  virtual void destroy_children() = 0;
};

class Constant final : public Node {
 public:
  explicit Constant(double value) : value_(value) {}

  bool declare(Base::Params&) const override { return true; }
  bool bind(const Base::Params&, Base::Params&) override { return true; }
  bool is_constant() const override { return true; }
  bool compatible(std::uint32_t) const override { return true; }
  double eval(const Base::Quantity&) const override { return value_; }
  void print(std::ostream& out) const override { out << value_; }
  void destroy_children() override {}

 private:
  double value_;
};

// The variable, read in the node's units.
class Value final : public Node {
 public:
  explicit Value(Base::Units units) : units_(units) {}

  bool declare(Base::Params&) const override { return false; }
  bool bind(const Base::Params&, Base::Params&) override { return false; }
  bool is_constant() const override { return false; }
  bool compatible(std::uint32_t unit_row) const override;
  // Throws `Unable to convert from "<from>" to "<to>"`.
  double eval(const Base::Quantity& variable) const override;
  void print(std::ostream& out) const override;
  void destroy_children() override {}

 private:
  Base::Units units_;
};

class Parameter final : public Node {
 public:
  Parameter(std::string name, Base::Units units) : name_(std::move(name)), units_(units) {}

  bool declare(Base::Params& out) const override;
  // Throws "<name>::Not found", "<name>::Incompatible types",
  // `Unable to convert from "<from>" to "<to>"`.
  bool bind(const Base::Params& source, Base::Params& target) override;
  bool is_constant() const override { return true; }
  bool compatible(std::uint32_t) const override { return true; }
  // Throws "Unset parameter<name>" before bind.
  double eval(const Base::Quantity& variable) const override;
  void print(std::ostream& out) const override;
  void destroy_children() override {}

 private:
  std::string name_;
  Base::Units units_;
  bool bound_ = false;
  double value_ = 0.0;
};

class UnaryOp final : public Node {
 public:
  UnaryOp(OperatorNumber op, std::unique_ptr<Node> child) : op_(op), child_(std::move(child)) {}

  bool declare(Base::Params& out) const override { return child_->declare(out); }
  bool bind(const Base::Params& source, Base::Params& target) override;
  bool is_constant() const override { return child_->is_constant(); }
  bool compatible(std::uint32_t unit_row) const override { return child_->compatible(unit_row); }
  // Throws "Unknown unary operator in eval", and as tgamma does.
  double eval(const Base::Quantity& variable) const override;
  void print(std::ostream& out) const override;
  void destroy_children() override { child_.reset(); }

 private:
  double apply(double x) const;

  OperatorNumber op_;
  std::unique_ptr<Node> child_;
  bool folded_ = false;
  double value_ = 0.0;
};

class BinaryOp final : public Node {
 public:
  BinaryOp(OperatorNumber op, std::unique_ptr<Node> left, std::unique_ptr<Node> right);
  ~BinaryOp() override { BinaryOp::destroy_children(); }

  // Always asks both sides.
  bool declare(Base::Params& out) const override;
  bool bind(const Base::Params& source, Base::Params& target) override;
  // Both ask the right side only if the left agrees.
  bool is_constant() const override;
  bool compatible(std::uint32_t unit_row) const override;
  // The left side first. Throws "Unknown binary operator in eval".
  double eval(const Base::Quantity& variable) const override;
  void print(std::ostream& out) const override;
  // Right, then left.
  void destroy_children() override;

 private:
  // The last of the chain of left operands that starts here.
  BinaryOp* lowest() const;
  double compute(const Base::Quantity& variable) const;
  double apply(double left, double right) const;

  OperatorNumber op_;
  std::unique_ptr<Node> left_;
  std::unique_ptr<Node> right_;
  BinaryOp* below_;            // the left side, where that is a BinaryOp
  BinaryOp* above_ = nullptr;  // the BinaryOp of which this is the left side
  bool folded_ = false;
  double value_ = 0.0;
};

}  // namespace Expression

#endif  // KELPBOX_EXPRESSION_NODE_H_
