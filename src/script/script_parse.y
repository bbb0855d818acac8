// The grammar of site scripts.
//
// A name arrives as the kind of the entry that it finds in the innermost open block. Actions that
// open or close a block are therefore placed as early as possible, before the next name is looked
// up.

%require "3.8"
%define api.pure full
%define api.push-pull push
%define api.prefix {script_parse_}
%define api.token.prefix {TOKEN_}
%define api.value.type {Script::Variable*}
%define parse.error custom
%parse-param { Script::ScriptParse& parse }
%expect 0

%code requires {
#include "script/parse.h"
}

%code top {
// The stacks are fixed. They limit the nesting of blocks and parentheses.
#define YYINITDEPTH 200
#define YYMAXDEPTH 200
}

%code {
// Only called when the stack is exhausted: yyreport_syntax_error handles syntax errors.
static void script_parse_error(Script::ScriptParse& parse, const char* error) {
  parse.report(std::string(error) + ", the script is nested too deeply");
}
}

%token END 0        "end of input"
%token INCLUDE      "include"
%token SIMPLE_VALUE "number"
%token STRING_VAL   "string"
%token IDENT        "unknown name"
%token SIMPLE_IDENT "number key"
%token STRING_IDENT "string key"
%token OBJ_IDENT    "object key"
%token ARRAY_IDENT  "array key"
%token ENUM_IDENT   "enumeration key"
%token ENUM_VAL     "enumeration member"
%token NULL_VALUE   "$"
%token LPAR "("   RPAR ")"
%token LCURL "{"  RCURL "}"
%token LSQR "["   RSQR "]"
%token DDOT ".."  ASSIGN "="  SEMI ";"
%token PLUS "+"   MINUS "-"  TIMES "*"  DIVIDE "/"

%left PLUS MINUS
%left TIMES DIVIDE
%precedence NEGATE

%start script

%%

script
  : system_items
  ;

system_items
  : system_items system_item
  | system_item
  ;

system_item
  : OBJ_IDENT { parse.enter(parse.take($1)); } LCURL base_items { parse.leave(); } RCURL
  ;

base_items
  : base_item
  | base_items base_item
  ;

base_item
  : object_block
  | base_rule term
  ;

term
  : SEMI
  | term SEMI
  ;

object_block
  : OBJ_IDENT { parse.enter(parse.take($1)); } LCURL base_items { parse.leave(); } RCURL
  | ARRAY_IDENT LSQR value DDOT value RSQR
      { parse.build(*$1, parse.take($3), parse.take($5)); parse.replicate(parse.take($1)); } term
  | ARRAY_IDENT LSQR value DDOT value RSQR
      { parse.build(*$1, parse.take($3), parse.take($5)); parse.enter_first(*$1); }
    LCURL base_items { parse.leave(); parse.replicate(parse.take($1)); } RCURL
  | ARRAY_IDENT LSQR value RSQR { parse.enter_element(parse.take($1), parse.take($3)); }
    LCURL base_items { parse.leave(); } RCURL
  ;

base_rule
  : SIMPLE_IDENT ASSIGN value         { parse.assign(parse.take($1), parse.take($3)); }
  | SIMPLE_IDENT ASSIGN NULL_VALUE    { parse.take($1).set_no_value(); }
  | ENUM_IDENT { parse.enter_members(*$1); } ASSIGN ENUM_VAL
      { parse.assign(parse.take($1), parse.take($4)); parse.leave(); }
  | STRING_IDENT ASSIGN STRING_VAL    { parse.assign(parse.take($1), parse.take($3)); }
  ;

value
  : value PLUS value            { $$ = parse.keep(parse.take($1) + parse.take($3)); }
  | value MINUS value           { $$ = parse.keep(parse.take($1) - parse.take($3)); }
  | value TIMES value           { $$ = parse.keep(parse.take($1) * parse.take($3)); }
  | value DIVIDE value          { $$ = parse.keep(parse.take($1) / parse.take($3)); }
  | LPAR value RPAR             { $$ = $2; }
  | MINUS value %prec NEGATE    { $$ = parse.keep(-parse.take($2)); }
  | SIMPLE_VALUE
  ;

%%

// The name of the table in which the look-up failed.
static const char* failed_table(int state, yysymbol_kind_t token) {
  const int row = yypact[state];
  if (yypact_value_is_default(row)) return "yydefact from yypact error";
  const int entry = row + token;
  if (entry < 0 || YYLAST < entry || yycheck[entry] != token) {
    return "yydefact after YYTRANSLATE added error";
  }
  return "yytable error";
}

static int yyreport_syntax_error(const yypcontext_t* context, Script::ScriptParse& parse) {
  const yysymbol_kind_t token = yypcontext_token(context);
  std::string text = std::string("syntax error, unexpected ") + yysymbol_name(token);
  yysymbol_kind_t expected[YYNTOKENS];
  const int count = yypcontext_expected_tokens(context, expected, YYNTOKENS);
  for (int i = 0; i < count; ++i) {
    text += i == 0 ? ", expecting " : " or ";
    text += yysymbol_name(expected[i]);
  }
  parse.report(text);
  throw failed_table(*context->yyps->yyssp, token);
}
