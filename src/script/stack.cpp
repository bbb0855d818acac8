#include "script/stack.h"

namespace Script {

void Stack::push(List& list) {
  lists_.push_back(&list);
  rebuild();
}

void Stack::pop() {
  if (lists_.size() < 2) throw "Stack underflow!";
  lists_.pop_back();
  rebuild();
}

Variable Stack::find(const std::string& name) const {
  const auto found = names_.find(name);
  return found == names_.end() ? Variable() : found->second->reference();
}

void Stack::rebuild() {
  names_.clear();
  for (const Variable& item : lists_.back()->items()) names_.emplace(item.name(), &item);
}

}  // namespace Script
