// The declared fields of one object. The order of declaration is also the order of printing and of
// the checksum.
#ifndef KELPBOX_SCRIPT_LIST_H_
#define KELPBOX_SCRIPT_LIST_H_

#include <cstdint>
#include <string>
#include <vector>

#include "script/variable.h"

namespace Script {

class Log;

class List {
 public:
  List() = default;
  virtual ~List() = default;
  List(List&&) noexcept = default;
  List& operator=(List&&) noexcept = default;
  List(const List&) = delete;
  List& operator=(const List&) = delete;

  // The class name of the object, set first if one is given. It is null until the object is built.
  const char* name(const char* class_name = nullptr);
  const char* name() const { return name_; }

  // Declare a field by key and address. Neither is owned, and a key is a string literal. Adjustable
  // fields are tuning values. Fixed fields describe the installation, and the checksum covers them.
  void adjustable(const char* key, std::int32_t& field);
  void adjustable(const char* key, double& field);
  void adjustable(const char* key, std::string& field);
  void adjustable(const char* key, SubEnum& field);
  void fixed(const char* key, std::int32_t& field);
  void fixed(const char* key, double& field);
  void fixed(const char* key, std::string& field);
  void fixed(const char* key, SubEnum& field);
  void object(const char* key, BaseWrapObj& wrapper);
  void array(const char* key, BaseWrapAry& wrapper);
  // A member of an enumeration.
  void member(const char* name, std::int32_t number);

  std::vector<Variable>& items() { return items_; }
  const std::vector<Variable>& items() const { return items_; }

  // The log that the object of this list supplies, or null.
  void supply_log(Log* log) { log_ = log; }
  Log* supplied_log() const { return log_; }

 private:
  const char* name_ = nullptr;
  std::vector<Variable> items_;
  Log* log_ = nullptr;
};

}  // namespace Script

#endif  // KELPBOX_SCRIPT_LIST_H_
