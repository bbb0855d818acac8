// The grammar of a formula.
//
// Each action hands a finished part of the tree to ExpressionParser, where operators find their
// operands. The generated parser therefore holds no tree, and a failed parse has nothing to free.

%define api.pure full
%define api.push-pull push
%define api.prefix {expression_}
%define api.value.type {Expression::TokenValue}
%define parse.error simple

%param {Expression::ExpressionParser& parser}

%code requires {
#include "expression/parser.h"
#include "expression/token.h"
}

%code {
// The stack is fixed. It limits the nesting of a formula.
#define YYINITDEPTH 200
#define YYMAXDEPTH 200

namespace Binary = Expression::Binary;
namespace Unary = Expression::Unary;

static Base::Units plain_number() { return Base::default_units(Base::Category::unit); }

static void yyerror(Expression::ExpressionParser& parser, const char* report) {
  parser.error(report);
}
}

%token <number> CONST_VAL
%token <op> UNARY_FUNC BINARY_FUNC
%token <text> PARAMETER UNITS
%token VARIABLE LPAR RPAR COMMA

// From loosest to tightest binding.
%left PLUS MINUS
%left TIMES DIVIDE
%precedence NEGATE
%right POWER

%%

program:
    value
  ;

value:
    UNARY_FUNC LPAR value RPAR                { parser.unary($UNARY_FUNC); }
  | BINARY_FUNC LPAR value COMMA value RPAR   { parser.binary($BINARY_FUNC); }
  | LPAR value RPAR
  | value TIMES value                         { parser.binary(Binary::times); }
  | value DIVIDE value                        { parser.binary(Binary::divide); }
  | value PLUS value                          { parser.binary(Binary::plus); }
  | value MINUS value                         { parser.binary(Binary::minus); }
  | value POWER value                         { parser.binary(Binary::power); }
  | MINUS value %prec NEGATE                  { parser.unary(Unary::negate); }
  | CONST_VAL                                 { parser.constant($CONST_VAL); }
  | PARAMETER                                 { parser.parameter(*$PARAMETER, plain_number()); }
  | PARAMETER UNITS                           { parser.parameter(*$PARAMETER, Base::resolve_units(*$UNITS)); }
  | VARIABLE UNITS                            { parser.variable(Base::resolve_units(*$UNITS)); }
  ;
