// Reads a script into a tree of objects, writes its settings back, and owns the tree.
#ifndef KELPBOX_SCRIPT_SERIALISE_H_
#define KELPBOX_SCRIPT_SERIALISE_H_

#include <cstdint>
#include <ostream>
#include <string>

#include "script/master.h"
#include "script/wrap.h"

namespace Script {

class SubSerial : public Master {
 public:
  // `key` is the only name that a script may open at its top level.
  SubSerial(const char* key, BaseWrapObj& root);
  ~SubSerial() override;

  // Reads the main script and then the second one, unless its path is empty, as one stream of
  // tokens. Then verifies the tree, sets its paths and calls `create` of its objects. Lines for
  // missing keys, ready to paste into a script, go to `report`.
  //
  // Throws std::string: `File "<path>" does not exist`, `Unable to open file "<path>" for input`,
  // "<main>::parse error", "<main>::Failed to verify", "<main>::No log object found", "Caught log
  // exception" (the item goes to the log), "<main>::<message>" for a string thrown by `create`,
  // "Incorrect syntax in include directive", `File "<path>" includes itself`, and the messages of
  // docs/limits.md. Throws const char* for syntax errors and misuse of the framework. After a
  // failure the tree is partly filled and must not be used.
  void read(std::ostream& report, const std::string& main_path, const std::string& second_path);

  // Writes the adjustable fields to the second path, unless it is empty. A file that cannot be
  // opened is not reported.
  void save() override;

  // The checksum of the fixed fields of the tree, or of all fields with `fixed_only` false.
  std::uint32_t checksum(bool fixed_only = true) const;

 private:
  class Parser;

  void finish_objects(const std::string& main_path);

  std::string second_path_;
  BaseWrapObj& root_object_;
  List root_;
};

// The reader of a tree whose root is of class T. The wrapper is a base class so that it exists
// before SubSerial refers to it.
template <typename T>
class Serialise : private WrapObj<T>, public SubSerial {
 public:
  explicit Serialise(const char* key) : SubSerial(key, static_cast<WrapObj<T>&>(*this)) {}

  // Null until a script has opened the root.
  T* object() const { return WrapObj<T>::get(); }
};

}  // namespace Script

#endif  // KELPBOX_SCRIPT_SERIALISE_H_
