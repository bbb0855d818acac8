#include "expression/node.h"

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <utility>

#include "support/thrown.h"
#include "testutil.h"

namespace Expression {
namespace {

using Testing::thrown;

const Base::Quantity Anything = quantity(1.0, "");

// A leaf that counts the calls and returns the given answers.
struct Visits {
  bool fixed = true;
  double value = 0.0;
  int declared = 0;
  int bound = 0;
  int asked_constant = 0;
  int asked_compatible = 0;
  int evaluated = 0;
};

class Witness final : public Node {
 public:
  explicit Witness(Visits& visits) : visits_(visits) {}

  bool declare(Base::Params&) const override {
    ++visits_.declared;
    return visits_.fixed;
  }
  bool bind(const Base::Params&, Base::Params&) override {
    ++visits_.bound;
    return visits_.fixed;
  }
  bool is_constant() const override {
    ++visits_.asked_constant;
    return visits_.fixed;
  }
  bool compatible(std::uint32_t) const override {
    ++visits_.asked_compatible;
    return visits_.fixed;
  }
  double eval(const Base::Quantity&) const override {
    ++visits_.evaluated;
    return visits_.value;
  }
  void print(std::ostream& out) const override { out << '?'; }
  void destroy_children() override {}

 private:
  Visits& visits_;
};

std::unique_ptr<Node> witness(Visits& visits) { return std::make_unique<Witness>(visits); }

std::unique_ptr<Node> binary(OperatorNumber op, std::unique_ptr<Node> left,
                             std::unique_ptr<Node> right) {
  return std::make_unique<BinaryOp>(op, std::move(left), std::move(right));
}

std::uint32_t row(const std::string& units) { return Base::resolve_units(units).row; }

TEST(Folding, AFoldedUnaryDoesNotEvaluateItsChild) {
  Visits child{.value = 3.0};
  UnaryOp node(Unary::negate, witness(child));
  Base::Params none;
  EXPECT_TRUE(node.bind(none, none));
  EXPECT_EQ(child.evaluated, 1);
  child.value = 4.0;
  EXPECT_EQ(node.eval(Anything), -3.0);
  EXPECT_EQ(node.eval(Anything), -3.0);
  EXPECT_EQ(child.evaluated, 1);
}

TEST(Folding, AFoldedBinaryDoesNotEvaluateItsChildren) {
  Visits left{.value = 3.0};
  Visits right{.value = 5.0};
  const auto node = binary(Binary::minus, witness(left), witness(right));
  Base::Params none;
  EXPECT_TRUE(node->bind(none, none));
  EXPECT_EQ(left.evaluated, 1);
  EXPECT_EQ(right.evaluated, 1);
  EXPECT_EQ(node->eval(Anything), -2.0);
  EXPECT_EQ(left.evaluated, 1);
  EXPECT_EQ(right.evaluated, 1);
}

TEST(Folding, AnUnboundTreeEvaluatesItsLeavesEachTime) {
  Visits leaf{.value = 3.0};
  const UnaryOp node(Unary::negate, witness(leaf));
  EXPECT_EQ(node.eval(Anything), -3.0);
  leaf.value = 4.0;
  EXPECT_EQ(node.eval(Anything), -4.0);
  EXPECT_EQ(leaf.evaluated, 2);
}

TEST(Folding, FoldsOneSideAndEvaluatesTheOther) {
  Visits variable{.fixed = false, .value = 1.0};
  Visits fixed{.value = 2.0};
  const auto node = binary(Binary::plus, witness(variable),
                           binary(Binary::times, witness(fixed), std::make_unique<Constant>(3.0)));
  Base::Params none;
  EXPECT_FALSE(node->bind(none, none));
  EXPECT_EQ(variable.evaluated, 0);
  EXPECT_EQ(fixed.evaluated, 1);
  EXPECT_EQ(node->eval(Anything), 7.0);
  variable.value = 10.0;
  EXPECT_EQ(node->eval(Anything), 16.0);
  EXPECT_EQ(variable.evaluated, 2);
  EXPECT_EQ(fixed.evaluated, 1);
}

// 2 + 3 + $ + 4: the part before the variable is constant.
TEST(Folding, FoldsTheStartOfAChain) {
  Visits first{.value = 2.0};
  Visits second{.value = 3.0};
  Visits variable{.fixed = false, .value = 1.0};
  Visits last{.value = 4.0};
  const auto node =
      binary(Binary::plus,
             binary(Binary::plus, binary(Binary::plus, witness(first), witness(second)),
                    witness(variable)),
             witness(last));
  Base::Params none;
  EXPECT_FALSE(node->bind(none, none));
  EXPECT_EQ(node->eval(Anything), 10.0);
  EXPECT_EQ(node->eval(Anything), 10.0);
  EXPECT_EQ(first.evaluated, 1);
  EXPECT_EQ(second.evaluated, 1);
  EXPECT_EQ(variable.evaluated, 2);
  EXPECT_EQ(last.evaluated, 2);
}

TEST(Folding, AFoldedChainEvaluatesNoneOfItsLinks) {
  Visits first{.value = 2.0};
  Visits second{.value = 3.0};
  Visits third{.value = 4.0};
  const auto node =
      binary(Binary::minus, binary(Binary::minus, witness(first), witness(second)), witness(third));
  Base::Params none;
  EXPECT_TRUE(node->bind(none, none));
  EXPECT_EQ(node->eval(Anything), -5.0);
  EXPECT_EQ(first.evaluated, 1);
  EXPECT_EQ(second.evaluated, 1);
  EXPECT_EQ(third.evaluated, 1);
}

TEST(Folding, BindingAgainFoldsTheNewValues) {
  Visits left{.value = 3.0};
  Visits right{.value = 5.0};
  UnaryOp node(Unary::negate, binary(Binary::plus, witness(left), witness(right)));
  Base::Params none;
  EXPECT_TRUE(node.bind(none, none));
  left.value = 10.0;
  EXPECT_EQ(node.eval(Anything), -8.0);
  EXPECT_TRUE(node.bind(none, none));
  EXPECT_EQ(node.eval(Anything), -15.0);
}

TEST(Folding, AFailedBindLeavesTheTreeUnchanged) {
  Visits argument{.value = 5.0};
  UnaryOp node(Unary::gamma, witness(argument));
  Base::Params none;
  EXPECT_TRUE(node.bind(none, none));
  argument.value = -1.0;
  EXPECT_EQ(thrown([&] { node.bind(none, none); }),
            "tgamma: Invalid input argument -1. Argument must be positive.");
  EXPECT_NEAR(node.eval(Anything), 24.0, 1e-12);
}

TEST(BinaryOp, BindsAndDeclaresBothSidesAlways) {
  Visits left{.fixed = false};
  Visits right{.fixed = true};
  const auto node = binary(Binary::plus, witness(left), witness(right));
  Base::Params none;
  EXPECT_FALSE(node->bind(none, none));
  EXPECT_FALSE(node->declare(none));
  EXPECT_EQ(right.bound, 1);
  EXPECT_EQ(right.declared, 1);
  left.fixed = true;
  right.fixed = false;
  EXPECT_FALSE(node->bind(none, none));
  EXPECT_FALSE(node->declare(none));
  right.fixed = true;
  EXPECT_TRUE(node->declare(none));
  EXPECT_TRUE(node->bind(none, none));
}

TEST(BinaryOp, ChecksTheRightSideOnlyIfTheLeftPasses) {
  Visits left{.fixed = false};
  Visits right{.fixed = true};
  const auto node = binary(Binary::plus, witness(left), witness(right));
  EXPECT_FALSE(node->is_constant());
  EXPECT_FALSE(node->compatible(1));
  EXPECT_EQ(right.asked_constant, 0);
  EXPECT_EQ(right.asked_compatible, 0);
  left.fixed = true;
  EXPECT_TRUE(node->is_constant());
  EXPECT_TRUE(node->compatible(1));
  right.fixed = false;
  EXPECT_FALSE(node->is_constant());
  EXPECT_FALSE(node->compatible(1));
}

// The message shows which side came first.
TEST(BinaryOp, BindsAndEvaluatesTheLeftSideFirst) {
  const auto tree = [] {
    return binary(Binary::plus, std::make_unique<Parameter>("left", Base::Units{1, 0}),
                  std::make_unique<Parameter>("right", Base::Units{1, 0}));
  };
  const Base::Params source;
  Base::Params target;
  EXPECT_EQ(thrown([&] { tree()->eval(Anything); }), "Unset parameterleft");
  EXPECT_EQ(thrown([&] { tree()->bind(source, target); }), "left::Not found");
  const auto chain =
      binary(Binary::minus, tree(), std::make_unique<Parameter>("last", Base::Units{}));
  EXPECT_EQ(thrown([&] { chain->eval(Anything); }), "Unset parameterleft");
  EXPECT_EQ(thrown([&] { chain->bind(source, target); }), "left::Not found");
}

TEST(BinaryOp, HasNoStepsIfTooMuchIsSetAside) {
  const auto variable = [] { return std::make_unique<Value>(Base::resolve_units("m")); };
  for (const auto& [depth, possible] : {std::pair{200, true}, std::pair{300, false}}) {
    std::unique_ptr<Node> sum = variable();
    for (int i = 0; i < depth; ++i) sum = binary(Binary::plus, variable(), std::move(sum));
    Program program;
    EXPECT_EQ(sum->compile(Base::resolve_units("m"), program), possible) << depth;
    if (!possible) continue;
    program.finish(1.0);
    EXPECT_EQ(program.run(3.0), 3.0 * (depth + 1));
  }
}

// Records its name when it is freed.
class Mortal final : public Node {
 public:
  Mortal(char name, std::string& freed) : name_(name), freed_(freed) {}
  ~Mortal() override { freed_ += name_; }

  bool declare(Base::Params&) const override { return true; }
  bool bind(const Base::Params&, Base::Params&) override { return true; }
  bool is_constant() const override { return true; }
  bool compatible(std::uint32_t) const override { return true; }
  double eval(const Base::Quantity&) const override { return 0.0; }
  void print(std::ostream&) const override {}
  void destroy_children() override {}

 private:
  char name_;
  std::string& freed_;
};

// (a + b) + (c + -d)
TEST(BinaryOp, FreesTheRightSideFirst) {
  std::string freed;
  const auto leaf = [&](char name) { return std::make_unique<Mortal>(name, freed); };
  const auto node =
      binary(Binary::plus, binary(Binary::plus, leaf('a'), leaf('b')),
             binary(Binary::plus, leaf('c'), std::make_unique<UnaryOp>(Unary::negate, leaf('d'))));
  node->destroy_children();
  EXPECT_EQ(freed, "dcba");
}

TEST(UnaryOp, FreesItsChild) {
  std::string freed;
  UnaryOp node(Unary::negate, std::make_unique<Mortal>('a', freed));
  node.destroy_children();
  EXPECT_EQ(freed, "a");
}

TEST(Leaves, LoseNothingWhenTheNodesBelowAreFreed) {
  Constant constant(2.5);
  Value value(Base::resolve_units("cm"));
  Parameter parameter("a", Base::resolve_units("m"));
  Base::Params source;
  Base::Params target;
  source.insert("a", 4.0, "m");
  parameter.bind(source, target);
  for (Node* leaf : {static_cast<Node*>(&constant), static_cast<Node*>(&value),
                     static_cast<Node*>(&parameter)}) {
    leaf->destroy_children();
  }
  EXPECT_EQ(constant.eval({}), 2.5);
  EXPECT_NEAR(value.eval(quantity(3.0, "m")), 300.0, 1e-12);
  EXPECT_EQ(parameter.eval({}), 4.0);
}

TEST(UnaryOp, ReturnsTheAnswersOfItsChild) {
  for (const bool fixed : {false, true}) {
    Visits child{.fixed = fixed};
    UnaryOp node(Unary::sine, witness(child));
    Base::Params none;
    EXPECT_EQ(node.declare(none), fixed);
    EXPECT_EQ(node.is_constant(), fixed);
    EXPECT_EQ(node.compatible(1), fixed);
    EXPECT_EQ(node.bind(none, none), fixed);
  }
}

TEST(Constant, HasTheSameValueForAnyVariable) {
  Constant node(2.5);
  Base::Params none;
  EXPECT_TRUE(node.declare(none));
  EXPECT_TRUE(node.bind(none, none));
  EXPECT_TRUE(node.is_constant());
  EXPECT_TRUE(node.compatible(row("m")));
  EXPECT_EQ(node.eval(quantity(7.0, "s")), 2.5);
  EXPECT_TRUE(none.entries().empty());
}

TEST(Constant, IsWrittenInTheDefaultFormatOfAStream) {
  EXPECT_EQ(written(Constant(2.0)), "2");
  EXPECT_EQ(written(Constant(1234567.0)), "1.23457e+06");
  EXPECT_EQ(written(Constant(0.1 + 0.2)), "0.3");
}

TEST(Value, IsTheVariableConvertedToItsUnits) {
  Value node(Base::resolve_units("Hz"));
  Base::Params none;
  EXPECT_FALSE(node.declare(none));
  EXPECT_FALSE(node.bind(none, none));
  EXPECT_FALSE(node.is_constant());
  EXPECT_TRUE(node.compatible(row("Hz")));
  EXPECT_TRUE(node.compatible(row("rad/s")));
  EXPECT_TRUE(node.compatible(row("rpm")));
  EXPECT_FALSE(node.compatible(row("s")));
  EXPECT_EQ(node.eval(quantity(2.0, "kHz")), 2000.0);
  EXPECT_EQ(thrown([&] { node.eval(quantity(2.0, "m")); }),
            "Unable to convert from \"m\" to \"Hz\"");
  EXPECT_EQ(written(node), "$[Hz]");
}

TEST(Parameter, IsDeclaredWithItsUnitsAndNoValue) {
  const Parameter node("depth", Base::resolve_units("mm"));
  Base::Params out;
  EXPECT_TRUE(node.declare(out));
  ASSERT_EQ(out.entries().size(), 1U);
  EXPECT_EQ(out.at("depth").units, Base::resolve_units("mm"));
  EXPECT_EQ(out.at("depth").state.state, 0U);
}

TEST(Parameter, IsUnsetBeforeBind) {
  const Parameter node("depth", Base::resolve_units("m"));
  EXPECT_EQ(thrown([&] { node.eval(Anything); }), "Unset parameterdepth");
  EXPECT_TRUE(node.is_constant());
  EXPECT_TRUE(node.compatible(row("s")));
  EXPECT_EQ(written(node), "depth[m]");
}

TEST(Parameter, IsConvertedAndMergedByBind) {
  Parameter node("depth", Base::resolve_units("m"));
  Base::Params source;
  source.insert("depth", 250.0, "cm");
  source.insert("other", 1.0, "s");
  Base::Params target;
  EXPECT_TRUE(node.bind(source, target));
  EXPECT_EQ(node.eval(Anything), 2.5);
  ASSERT_EQ(target.entries().size(), 1U);
  EXPECT_EQ(target.at("depth").value, 250.0);
  EXPECT_EQ(target.at("depth").units, Base::resolve_units("cm"));
}

TEST(Parameter, IsReadFromTheSourceEvenIfTheTargetHasAnotherValue) {
  Parameter node("depth", Base::resolve_units("m"));
  Base::Params source;
  source.insert("depth", 2.0, "m");
  Base::Params target;
  target.insert("depth", 9.0, "m");
  EXPECT_TRUE(node.bind(source, target));
  EXPECT_EQ(node.eval(Anything), 2.0);
  EXPECT_EQ(target.at("depth").value, 9.0);
}

TEST(Parameter, MustBePresentInTheSource) {
  Parameter node("depth", Base::resolve_units("m"));
  const Base::Params source;
  Base::Params target;
  EXPECT_EQ(thrown([&] { node.bind(source, target); }), "depth::Not found");
  EXPECT_EQ(thrown([&] { node.eval(Anything); }), "Unset parameterdepth");
}

TEST(Parameter, MustBeCompatibleWithTheTarget) {
  Parameter node("depth", Base::resolve_units("m"));
  Base::Params source;
  source.insert("depth", 2.0, "m");
  Base::Params target;
  target.insert("depth", 2.0, "s");
  EXPECT_EQ(thrown([&] { node.bind(source, target); }), "depth::Incompatible types");
}

TEST(Parameter, IsMergedBeforeItsConversionFails) {
  Parameter node("depth", Base::resolve_units("s"));
  Base::Params source;
  source.insert("depth", 2.0, "m");
  Base::Params target;
  EXPECT_EQ(thrown([&] { node.bind(source, target); }), "Unable to convert from \"m\" to \"s\"");
  EXPECT_TRUE(target.contains("depth"));
  EXPECT_EQ(thrown([&] { node.eval(Anything); }), "Unset parameterdepth");
}

TEST(Parameter, WithoutAValueIsReadAsNaN) {
  Parameter node("depth", Base::resolve_units("m"));
  Base::Params source;
  source.declare("depth", Base::resolve_units("m"));
  Base::Params target;
  EXPECT_TRUE(node.bind(source, target));
  const double value = node.eval(Anything);
  EXPECT_NE(value, value);
}

}  // namespace
}  // namespace Expression
