// Builds the tree of a formula from its tokens. The grammar stands in expression_parse.y.
//
// The tree grows on a stack of finished parts, in the order in which the grammar finishes them:
// an operator takes its operands from the top. Whatever ends a parse in its middle leaves the
// parts to this stack, and so nothing is lost.
#ifndef KELPBOX_EXPRESSION_PARSER_H_
#define KELPBOX_EXPRESSION_PARSER_H_

#include <memory>
#include <string>
#include <vector>

#include "expression/node.h"
#include "expression/token.h"

// The generated parser's state between two tokens.
struct expression_pstate;

namespace Expression {

class ExpressionParser {
 public:
  ExpressionParser();
  ExpressionParser(const ExpressionParser&) = delete;
  ExpressionParser& operator=(const ExpressionParser&) = delete;
  virtual ~ExpressionParser();

  // Gives the parser the next token, kind 0 at the end of the text.
  void push(int kind, const TokenValue& value);
  // The whole tree, after the end of the text.
  std::unique_ptr<Node> tree();

  // For the grammar's actions.
  void constant(double value);
  void parameter(const std::string& name, Base::Units units);
  void variable(Base::Units units);
  void unary(OperatorNumber op);
  void binary(OperatorNumber op);

  // Called for a syntax error, which includes nesting that needs more than the parser's stack.
  // Must throw.
  virtual void error(const std::string& report) = 0;

 private:
  std::unique_ptr<Node> take();

  struct Delete {
    void operator()(expression_pstate* state) const;
  };
  std::unique_ptr<expression_pstate, Delete> state_;
  std::vector<std::unique_ptr<Node>> parts_;
};

}  // namespace Expression

#endif  // KELPBOX_EXPRESSION_PARSER_H_
