#include "script/list.h"

namespace Script {

const char* List::name(const char* class_name) {
  if (class_name) name_ = class_name;
  return name_;
}

void List::adjustable(const char* key, std::int32_t& field) {
  items_.emplace_back(VarType::adjustable_integer, key, &field);
}
void List::adjustable(const char* key, double& field) {
  items_.emplace_back(VarType::adjustable_real, key, &field);
}
void List::adjustable(const char* key, std::string& field) {
  items_.emplace_back(VarType::adjustable_string, key, &field);
}
void List::adjustable(const char* key, SubEnum& field) {
  items_.emplace_back(VarType::adjustable_enum, key, &field);
}
void List::fixed(const char* key, std::int32_t& field) {
  items_.emplace_back(VarType::fixed_integer, key, &field);
}
void List::fixed(const char* key, double& field) {
  items_.emplace_back(VarType::fixed_real, key, &field);
}
void List::fixed(const char* key, std::string& field) {
  items_.emplace_back(VarType::fixed_string, key, &field);
}
void List::fixed(const char* key, SubEnum& field) {
  items_.emplace_back(VarType::fixed_enum, key, &field);
}
void List::object(const char* key, BaseWrapObj& wrapper) { items_.emplace_back(key, &wrapper); }
void List::array(const char* key, BaseWrapAry& wrapper) { items_.emplace_back(key, &wrapper); }
void List::member(const char* name, std::int32_t number) { items_.emplace_back(name, number); }

}  // namespace Script
