// The reader of site scripts, and the owner of the tree that it fills.
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
  // `key` is the one name that a script may open at its top level.
  SubSerial(const char* key, BaseWrapObj& root);
  ~SubSerial() override;

  // Reads the main script and, when its path is not empty, the second one behind it, as one
  // stream of tokens; verifies, names and finishes the tree. Ready-to-paste lines for missing
  // keys go to `report`.
  //
  // Throws std::string: `File "<path>" does not exist`, `Unable to open file "<path>" for
  // input`, "<main>::parse error", "<main>::Failed to verify", "<main>::No log object found",
  // "Caught log exception" (the item goes to the log), "<main>::<text>" for any other string
  // of a finishing object, "Incorrect syntax in include directive", `File "<path>" includes
  // itself`, and a bound that the script exceeds (docs/limits.md); and plain texts (const char*) of
  // the framework and the parser. What was set before a failure stays set, and the object is then
  // of no further use.
  void read(std::ostream& report, const std::string& main_path, const std::string& second_path);

  // Writes the adjustable fields to the second path; nothing when that is empty.
  void save() override;

  // The sum over the fixed fields of the tree from the root object down; with `fixed_only`
  // false over all fields.
  std::uint32_t checksum(bool fixed_only = true) const;

 private:
  class Parser;

  void finish_objects(const std::string& main_path);

  std::string second_path_;
  BaseWrapObj& root_object_;
  List root_;
};

// The reader of a tree whose root is of class T.
template <typename T>
class Serialise : private WrapObj<T>, public SubSerial {
 public:
  explicit Serialise(const char* key) : SubSerial(key, static_cast<WrapObj<T>&>(*this)) {}

  // Null until a script has opened the root.
  T* object() const { return WrapObj<T>::get(); }
};

}  // namespace Script

#endif  // KELPBOX_SCRIPT_SERIALISE_H_
