// Writing the tree back as script text, and reducing it to a checksum.
#ifndef KELPBOX_SCRIPT_PRINT_H_
#define KELPBOX_SCRIPT_PRINT_H_

#include <cstdint>
#include <ostream>
#include <string>

#include "script/list.h"

namespace Script {

// "key = value" of a simple field, whatever the process's locale. A mark is written as the number
// or the NaN that it is.
std::string text_form(const Variable& item);

// Writes the fields below the list as script text. With `adjustable_only`, the settings: fixed
// fields and the declarations of arrays are left out. Throws the plain text "No other types can
// be printed out".
void print(const List& list, std::ostream& out, bool adjustable_only, unsigned indent);
// How many fields `print` would write.
unsigned printable_count(const List& list, bool adjustable_only);

class Checksum {
 public:
  // Only the concatenation of the texts counts.
  void add_text(const char* text);
  // The class names and fields below the list. With `fixed_only` the adjustable fields are left
  // out. Throws the plain text "No other types can form part of a checksum".
  void add(const List& list, bool fixed_only);

  std::uint32_t value() const { return sum_; }

 private:
  std::uint32_t sum_ = 0;
  std::uint32_t shift_ = 0;
};

}  // namespace Script

#endif  // KELPBOX_SCRIPT_PRINT_H_
