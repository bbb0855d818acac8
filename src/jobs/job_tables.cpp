#include "jobs/job_tables.h"

namespace Jobs {
namespace {

std::string name_of(const Value& table) {
  const Value* name = table.find("name");
  return name != nullptr ? name->text : "";
}

}  // namespace

Value* find_in(Value& table, const std::string& key) {
  for (Member& member : table.members) {
    if (member.key == key) {
      return &member.value;
    }
  }
  return nullptr;
}

std::vector<Value*> tables_of(Value& parent, const std::string& key) {
  std::vector<Value*> tables;
  if (Value* value = find_in(parent, key)) {
    if (value->kind == Value::Kind::table) {
      tables.push_back(value);
    }
    for (Value& item : value->items) {
      if (item.kind == Value::Kind::table) {
        tables.push_back(&item);
      }
    }
  }
  return tables;
}

std::vector<std::string> names_of(const std::vector<Value*>& tables) {
  std::vector<std::string> names;
  names.reserve(tables.size());
  for (const Value* table : tables) {
    names.push_back(name_of(*table));
  }
  return names;
}

Value* with_name(const std::vector<Value*>& tables, const std::string& name) {
  for (Value* table : tables) {
    if (name_of(*table) == name) {
      return table;
    }
  }
  return nullptr;
}

}  // namespace Jobs
