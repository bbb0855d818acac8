#include "script/walks.h"

#include <string_view>

#include "script/wrap.h"

namespace Script {
namespace {

std::string indexed(const std::string& key, std::int32_t index) {
  return key + "[" + std::to_string(index) + "]";
}

bool same_name(const char* left, const char* right) {
  if (!left || !right) return left == right;
  return std::string_view(left) == right;
}

// The text after a missing key in the line to paste.
const char* placeholder(VarType type) {
  if (type == VarType::object) return "{}";
  return type == VarType::array ? "[$..$]" : " = $;";
}

void clone_array(BaseWrapAry& to, const BaseWrapAry& from) {
  // The first element may leave an inner array to the blocks of single elements.
  if (from.lists().empty()) return;
  to.build(from.index(from.lists().size() - 1), from.offset());
  for (std::size_t i = 0; i < from.lists().size(); ++i) clone(to.lists()[i], from.lists()[i]);
}

}  // namespace

bool verify(const List& list, std::ostream& report, unsigned depth, const std::string& prefix) {
  bool complete = true;
  for (const Variable& item : list.items()) {
    const std::string key = prefix + item.name();
    if (!item.is_set()) {
      if (!item.is_required()) continue;
      complete = false;
      report << key << placeholder(item.type()) << std::string(depth, '}') << '\n' << std::flush;
    } else if (item.type() == VarType::object) {
      if (!verify(item.as_object().list(), report, depth + 1, key + "{")) complete = false;
    } else if (item.type() == VarType::array) {
      const BaseWrapAry& array = item.as_array();
      for (std::size_t i = 0; i < array.lists().size(); ++i) {
        const std::string element = indexed(key, array.index(i)) + "{";
        if (!verify(array.lists()[i], report, depth + 1, element)) complete = false;
      }
    }
  }
  return complete;
}

void set_paths(const List& list, Master& owner, const std::string& path) {
  for (const Variable& item : list.items()) {
    if (!item.is_set()) continue;
    const std::string key = path.empty() ? item.name() : path + "::" + item.name();
    if (item.type() == VarType::object) {
      item.as_object().set_path(owner, key);
      set_paths(item.as_object().list(), owner, key);
    } else if (item.type() == VarType::array) {
      BaseWrapAry& array = item.as_array();
      for (std::size_t i = 0; i < array.lists().size(); ++i) {
        const std::string element = indexed(key, array.index(i));
        array.set_path(owner, element, array.index(i));
        set_paths(array.lists()[i], owner, element);
      }
    }
  }
}

Log* find_log(const List& list) {
  if (list.supplied_log()) return list.supplied_log();
  for (const Variable& item : list.items()) {
    if (!item.is_set()) continue;
    if (item.type() == VarType::object) {
      if (Log* log = find_log(item.as_object().list())) return log;
    } else if (item.type() == VarType::array) {
      for (const List& element : item.as_array().lists()) {
        if (Log* log = find_log(element)) return log;
      }
    }
  }
  return nullptr;
}

void create(const List& list) {
  for (const Variable& item : list.items()) {
    if (!item.is_set()) {
      if (item.is_required()) throw "calling create on undefined object";
    } else if (item.type() == VarType::object) {
      create(item.as_object().list());
      item.as_object().create();
    } else if (item.type() == VarType::array) {
      for (const List& element : item.as_array().lists()) create(element);
      item.as_array().create();
    }
  }
}

void clone(List& to, const List& from) {
  if (!same_name(to.name(), from.name())) throw "Trying to clone disimilar lists";
  if (to.items().size() != from.items().size()) throw "Something very wrong";
  for (std::size_t i = 0; i < from.items().size(); ++i) {
    Variable& target = to.items()[i];
    const Variable& source = from.items()[i];
    if (target.type() != source.type()) throw "Major muckup";
    if (source.type() == VarType::object) {
      if (!source.as_object().list().name()) continue;
      target.as_object().build();
      clone(target.as_object().list(), source.as_object().list());
    } else if (source.type() == VarType::array) {
      clone_array(target.as_array(), source.as_array());
    } else {
      Variable value = source.reference();
      target.assign(value);
    }
  }
}

}  // namespace Script
