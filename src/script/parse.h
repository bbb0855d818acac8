// The parser of scripts: takes one stream of tokens, from however many files, and fills the tree
// below the root list. The grammar is script_parse.y.
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

// The token for a name that was found as the given entry; IDENT for an empty one. Throws the plain
// text "Unexpected type for an Ident!" for what no list holds.
int ident_token(const Variable& found);

class ScriptParse {
 public:
  explicit ScriptParse(List& root);
  virtual ~ScriptParse();
  ScriptParse(const ScriptParse&) = delete;
  ScriptParse& operator=(const ScriptParse&) = delete;

  // Takes a token, with an empty value where it has none, and acts as far as it decides the
  // input. Returns false when the parser's stack is exhausted. A syntax error is reported, and then
  // thrown as a plain text: "yydefact from yypact error", "yytable error" or "yydefact after
  // YYTRANSLATE added error".
  bool push(int token, Variable value);
  // Takes the end of the input.
  bool finish();

  // The entry of that name in the open scope.
  Variable find(const std::string& name) const { return stack_.find(name); }

  // An error of the grammar, in words for the user.
  virtual void report(const std::string& text) = 0;

  // The actions of the grammar.
  void enter(const Variable& object);
  void enter_first(const Variable& array);
  void enter_element(const Variable& array, const Variable& index);
  void enter_members(const Variable& enumeration);
  void leave() { stack_.pop(); }
  void build(const Variable& array, const Variable& last, const Variable& first);
  void replicate(const Variable& array) { count_elements(array.as_array().replicate()); }
  void assign(Variable field, Variable value) { field.assign(value); }
  // An action takes each value that nothing needs after it, and keeps the one that it makes.
  Variable take(Variable* value) { return values_.take(value); }
  Variable* keep(Variable value) { return values_.keep(std::move(value)); }

  // How many values the parser's stack has ever held at once.
  std::size_t values() const { return values_.places(); }

 private:
  struct Delete {
    void operator()(script_parse_pstate* state) const;
  };

  // Throws std::string when all arrays of the script have more elements than it may make.
  void count_elements(std::uint64_t elements);

  Stack stack_;
  std::uint64_t elements_ = 0;  // made or copied
  Values values_;
  std::unique_ptr<script_parse_pstate, Delete> state_;
};

}  // namespace Script

#endif  // KELPBOX_SCRIPT_PARSE_H_
