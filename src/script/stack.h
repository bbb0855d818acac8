// The blocks that a script has open, innermost on top. Names are looked up in the innermost only.
#ifndef KELPBOX_SCRIPT_STACK_H_
#define KELPBOX_SCRIPT_STACK_H_

#include <deque>
#include <map>
#include <string>

#include "script/list.h"

namespace Script {

class Stack {
 public:
  // The list is not copied. Until it is popped it must stay alive, and its items must not move.
  void push(List& list);
  // Throws const char* "Stack underflow!" instead of removing the last list.
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
