// A formula as a list of steps on plain numbers, for use at many values of the variable.
//
// A step works on the number that the steps before it have computed, the "current" number. Every
// step does what the node of the tree does, in the same order, so the result has the same bits.
#ifndef KELPBOX_EXPRESSION_PROGRAM_H_
#define KELPBOX_EXPRESSION_PROGRAM_H_

#include <cstddef>
#include <cstdint>
#include <vector>

#include "expression/operators.h"

namespace Expression {

class Program {
 public:
  // Each adds a step. `factor` converts the variable to the units in which a formula reads it.

  // The current number becomes the constant, or the variable.
  void constant(double value);
  void variable(double factor);
  // Operators on the current number, alone or with a constant at its right or left.
  void unary(OperatorNumber op);
  void binary_with(OperatorNumber op, double right);
  void binary_from(OperatorNumber op, double left);
  // Sets the current number aside. Returns false if too many are set aside already.
  bool set_aside();
  // The operator on the number last set aside, at the left, and the current one.
  void binary(OperatorNumber op);

  // The last step: the result is the current number times the factor.
  void finish(double factor);

  // The result of all steps. The first must be a constant or the variable. Throws as apply_unary
  // and apply_binary.
  double run(double x) const {
    const double variable = x * factor_;
    double current = variable;
    const Step* step = steps_.data();
    for (; step->code == scale_and_shift; ++step) current = current * step->number + step->shift;
    return step->code == return_result ? current : run_from(step, x, variable, current);
  }

 private:
  // What a step does, with what it works on besides the current number.
  enum Kind : std::uint32_t {
    make_constant,
    make_variable,
    put_aside,
    scale_and_shift,
    return_result,
    apply_one = 0x10,
    with_constant = 0x20,
    from_constant = 0x30,
    with_variable = 0x40,
    with_aside = 0x50,
  };

  struct Step {
    std::uint32_t code;  // the kind, plus the operator if that is one of the four of arithmetic
    OperatorNumber op;
    double number;  // the constant, or the factor of the variable
    double shift;   // of scale_and_shift
  };

  void add(Kind kind, OperatorNumber op = 0, double number = 0.0);
  // The current number is multiplied, and then the shift is added.
  void scale(double by, double shift);
  static double run_from(const Step* step, double x, double variable, double current);

  std::vector<Step> steps_;
  double factor_ = 1.0;    // of the variable, as it was read first
  bool starts_ = false;    // the variable is the first current number
  std::size_t aside_ = 0;  // how many numbers are set aside after the last step
};

}  // namespace Expression

#endif  // KELPBOX_EXPRESSION_PROGRAM_H_
