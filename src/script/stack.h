// The scopes that a script has open, innermost on top. Only the innermost is searched.
#ifndef KELPBOX_SCRIPT_STACK_H_
#define KELPBOX_SCRIPT_STACK_H_

#include <deque>
#include <map>
#include <string>

#include "script/list.h"

namespace Script {

class Stack {
 public:
  // Neither owned nor copied: a list must outlive its place on the stack, and its items must not
  // move.
  void push(List& list);
  // Throws the plain text "Stack underflow!" rather than remove the last list.
  void pop();
  // The entry of that name in the innermost list, or an empty Variable.
  Variable find(const std::string& name) const;

 private:
  void rebuild();

  std::deque<List*> lists_;
  std::map<std::string, const Variable*> names_;
};

}  // namespace Script

#endif  // KELPBOX_SCRIPT_STACK_H_
