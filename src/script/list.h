// The declared fields of one object, in declaration order, which is also the order of printing
// and of the checksum.
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

  // Sets the class name when given one, and returns the name: null while the object is absent.
  const char* name(const char* class_name = nullptr);
  const char* name() const { return name_; }

  // Declare a field by key and address. Neither is owned; the key is a literal. Adjustable
  // fields are tuning values; fixed fields describe the installation and are covered by the
  // checksum.
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

  // The log that this list's object supplies, if any.
  void supply_log(Log* log) { log_ = log; }
  Log* supplied_log() const { return log_; }

 private:
  const char* name_ = nullptr;
  std::vector<Variable> items_;
  Log* log_ = nullptr;
};

}  // namespace Script

#endif  // KELPBOX_SCRIPT_LIST_H_
