// The parser of scripts. It takes one stream of tokens, from any number of files, and fills the
// tree below the root list. The grammar is in script_parse.y.
#ifndef KELPBOX_SCRIPT_PARSE_H_
#define KELPBOX_SCRIPT_PARSE_H_

#include <cstdint>
#include <memory>
#include <string>
#include <utility>

#include "script/list.h"
#include "script/stack.h"
#include "script/values.h"
#include "script/wrap.h"

struct script_parse_pstate;

namespace Script {

// The token for a name, from the entry that it refers to, or TOKEN_IDENT if there is no entry.
// Throws const char* "Unexpected type for an Ident!" for a literal.
int ident_token(const Variable& found);

class ScriptParse {
 public:
  explicit ScriptParse(List& root);
  virtual ~ScriptParse();
  ScriptParse(const ScriptParse&) = delete;
  ScriptParse& operator=(const ScriptParse&) = delete;

  // Takes the next token and runs the grammar actions that it completes. The value is empty for a
  // token that has none. Returns false when the parser's stack is exhausted. A syntax error is
  // reported, and then thrown as const char*: "yydefact from yypact error", "yytable error" or
  // "yydefact after YYTRANSLATE added error".
  bool push(int token, Variable value);
  // As push, for the end of the input.
  bool finish();

  // The entry of that name in the innermost open block.
  Variable find(const std::string& name) const { return stack_.find(name); }

  // Receives the description of a syntax error, for the author of the script.
  virtual void report(const std::string& error) = 0;

  // The actions of the grammar. `take` removes an operand from the stored values, `keep` stores a
  // result.
  void enter(const Variable& object);
  void enter_first(const Variable& array);
  void enter_element(const Variable& array, const Variable& index);
  void enter_members(const Variable& enumeration);
  void leave() { stack_.pop(); }
  void build(const Variable& array, const Variable& last, const Variable& first);
  void replicate(const Variable& array) { count_elements(array.as_array().replicate()); }
  void assign(Variable field, Variable value) { field.assign(value); }
  Variable take(Variable* value) { return values_.take(value); }
  Variable* keep(Variable value) { return values_.keep(std::move(value)); }

  // The largest number of values that the parser's stack has held at once.
  std::size_t values() const { return values_.places(); }

 private:
  struct Delete {
    void operator()(script_parse_pstate* state) const;
  };

  // Throws std::string when the script makes or copies too many array elements in all.
  void count_elements(std::uint64_t elements);

  Stack stack_;
  std::uint64_t elements_ = 0;  // made or copied so far
  Values values_;
  std::unique_ptr<script_parse_pstate, Delete> state_;
};

}  // namespace Script

#endif  // KELPBOX_SCRIPT_PARSE_H_
