#include "script/parse.h"

#include <new>
#include <utility>

#include "script/sub_enum.h"
#include "script/wrap.h"
#include "script_parse.h"

namespace Script {
namespace {

// The bound of a whole script. Each statement is bounded too, but a script may have many. Copies
// count because they take as long.
constexpr std::uint64_t most_elements_in_all = 200000;

}  // namespace

int ident_token(const Variable& found) {
  switch (found.type()) {
    case VarType::empty:
      return TOKEN_IDENT;
    case VarType::member:
      return TOKEN_ENUM_VAL;
    case VarType::adjustable_integer:
    case VarType::fixed_integer:
    case VarType::adjustable_real:
    case VarType::fixed_real:
      return TOKEN_SIMPLE_IDENT;
    case VarType::adjustable_string:
    case VarType::fixed_string:
      return TOKEN_STRING_IDENT;
    case VarType::adjustable_enum:
    case VarType::fixed_enum:
      return TOKEN_ENUM_IDENT;
    case VarType::object:
      return TOKEN_OBJ_IDENT;
    case VarType::array:
      return TOKEN_ARRAY_IDENT;
    default:
      throw "Unexpected type for an Ident!";
  }
}

ScriptParse::ScriptParse(List& root) : state_(script_parse_pstate_new()) {
  if (!state_) throw std::bad_alloc();
  stack_.push(root);
}

ScriptParse::~ScriptParse() = default;

void ScriptParse::Delete::operator()(script_parse_pstate* state) const {
  script_parse_pstate_delete(state);
}

bool ScriptParse::push(int token, Variable value) {
  Variable* kept = value.type() == VarType::empty ? nullptr : keep(std::move(value));
  const int status = script_parse_push_parse(state_.get(), token, &kept, *this);
  return status == YYPUSH_MORE || status == 0;
}

bool ScriptParse::finish() { return push(TOKEN_END, Variable()); }

void ScriptParse::enter(const Variable& object) {
  BaseWrapObj& wrapper = object.as_object();
  wrapper.build();
  stack_.push(wrapper.list());
}

void ScriptParse::enter_first(const Variable& array) {
  stack_.push(array.as_array().lists().front());
}

void ScriptParse::enter_element(const Variable& array, const Variable& index) {
  stack_.push(array.as_array().element(index.as_integer()));
}

void ScriptParse::enter_members(const Variable& enumeration) {
  stack_.push(enumeration.as_enum().members());
}

void ScriptParse::build(const Variable& array, const Variable& last, const Variable& first) {
  const std::int32_t last_index = last.as_integer();
  array.as_array().build(last_index, first.as_integer());
  count_elements(array.as_array().lists().size());
}

void ScriptParse::count_elements(std::uint64_t elements) {
  elements_ += elements;
  if (elements_ <= most_elements_in_all) return;
  throw "Arrays of " + std::to_string(elements_) + " elements in all are too large: at most " +
      std::to_string(most_elements_in_all) + " can be made or copied in one script";
}

}  // namespace Script
