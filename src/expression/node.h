// The tree of a formula: numbers, the variable, parameters, and operators on them.
//
// A tree is bound to parameters and then evaluated for each value of the variable. Binding folds
// each part without a variable into one number, so that evaluation works only on the rest. After
// binding, eval only reads. Failures are thrown as a std::string. A failed evaluation does not
// change the tree, and after a failed bind it can be bound again.
//
// The parser's stack limits all nesting except that of left operands: a chain such as 1+2+3+... has
// any length. BinaryOp therefore walks the chain in a loop, which is safe on a small call stack.
#ifndef KELPBOX_EXPRESSION_NODE_H_
#define KELPBOX_EXPRESSION_NODE_H_

#include <cstdint>
#include <memory>
#include <optional>
#include <ostream>
#include <string>
#include <utility>

#include "base/params.h"
#include "base/quantity.h"
#include "base/units.h"
#include "expression/operators.h"
#include "expression/program.h"

namespace Expression {

// The argument with which a part without a variable is evaluated. Any value would do.
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
  // Frees the nodes below this one. It must be called before this node is destroyed.
  virtual void destroy_children() = 0;
  // The value, if it is known without evaluation.
  virtual std::optional<double> known() const { return std::nullopt; }
  // Adds the steps that compute the subtree for a variable in the given units. Returns false, or
  // throws as Base::factor does, if it has no such steps: `eval` then reports what is wrong.
  virtual bool compile(Base::Units, Program&) const { return false; }
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
  std::optional<double> known() const override { return value_; }

 private:
  double value_;
};

// The variable, `$`, read in the node's units.
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
  bool compile(Base::Units variable, Program& out) const override;

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
  std::optional<double> known() const override;

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
  // Throws as apply_unary does.
  double eval(const Base::Quantity& variable) const override;
  void print(std::ostream& out) const override;
  void destroy_children() override { child_.reset(); }
  std::optional<double> known() const override;
  bool compile(Base::Units variable, Program& out) const override;

 private:
  OperatorNumber op_;
  std::unique_ptr<Node> child_;
  bool folded_ = false;
  double value_ = 0.0;
};

class BinaryOp final : public Node {
 public:
  BinaryOp(OperatorNumber op, std::unique_ptr<Node> left, std::unique_ptr<Node> right);
  ~BinaryOp() override { BinaryOp::destroy_children(); }

  // These two always call both sides.
  bool declare(Base::Params& out) const override;
  bool bind(const Base::Params& source, Base::Params& target) override;
  // These two call the right side only if the left returns true.
  bool is_constant() const override;
  bool compatible(std::uint32_t unit_row) const override;
  // The left side first. Throws as apply_binary does.
  double eval(const Base::Quantity& variable) const override;
  void print(std::ostream& out) const override;
  // The right side first.
  void destroy_children() override;
  std::optional<double> known() const override;
  bool compile(Base::Units variable, Program& out) const override;

 private:
  // The last BinaryOp in the chain of left operands that starts here.
  BinaryOp* lowest() const;
  // Applies the operator to both sides, even if the value is folded already.
  double compute(const Base::Quantity& variable) const;
  // Adds the steps of the right side and of the operator. The left side is a known value or, if
  // there is none, the program's current number.
  bool compile_right(Base::Units variable, std::optional<double> left, Program& out) const;

  OperatorNumber op_;
  std::unique_ptr<Node> left_;
  std::unique_ptr<Node> right_;
  BinaryOp* below_;            // the left side, or null if that is no BinaryOp
  BinaryOp* above_ = nullptr;  // the BinaryOp that has this as its left side
  bool folded_ = false;
  double value_ = 0.0;
};

}  // namespace Expression

#endif  // KELPBOX_EXPRESSION_NODE_H_
