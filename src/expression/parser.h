// Builds the tree of a formula from its tokens. The grammar is in expression_parse.y.
//
// Finished parts of the tree lie on a stack, and an operator takes its operands from the top. The
// stack owns them, so a parse that fails leaks nothing.
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

  // Takes the next token. Its kind is 0 at the end of the formula.
  void push(int kind, const TokenValue& value);
  // The whole tree, after the end of the formula.
  std::unique_ptr<Node> tree();

  // The actions of the grammar. Each puts one part on the stack.
  void constant(double value);
  void parameter(const std::string& name, Base::Units units);
  void variable(Base::Units units);
  void unary(OperatorNumber op);
  void binary(OperatorNumber op);

  // Called for a syntax error, and for nesting that exhausts the parser's stack. Must throw.
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
