#include "expression/parser.h"

#include <new>
#include <utility>

#include "expression_parse.hpp"

namespace Expression {

void ExpressionParser::Delete::operator()(expression_pstate* state) const {
  expression_pstate_delete(state);
}

ExpressionParser::ExpressionParser() : state_(expression_pstate_new()) {
  if (state_ == nullptr) throw std::bad_alloc();
}

ExpressionParser::~ExpressionParser() = default;

void ExpressionParser::push(int kind, const TokenValue& value) {
  expression_push_parse(state_.get(), kind, &value, *this);
}

std::unique_ptr<Node> ExpressionParser::tree() { return take(); }

void ExpressionParser::constant(double value) {
  parts_.push_back(std::make_unique<Constant>(value));
}

void ExpressionParser::parameter(const std::string& name, Base::Units units) {
  parts_.push_back(std::make_unique<Parameter>(name, units));
}

void ExpressionParser::variable(Base::Units units) {
  parts_.push_back(std::make_unique<Value>(units));
}

void ExpressionParser::unary(OperatorNumber op) {
  parts_.push_back(std::make_unique<UnaryOp>(op, take()));
}

void ExpressionParser::binary(OperatorNumber op) {
  std::unique_ptr<Node> right = take();
  std::unique_ptr<Node> left = take();
  parts_.push_back(std::make_unique<BinaryOp>(op, std::move(left), std::move(right)));
}

std::unique_ptr<Node> ExpressionParser::take() {
  std::unique_ptr<Node> part = std::move(parts_.back());
  parts_.pop_back();
  return part;
}

}  // namespace Expression
