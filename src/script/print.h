// Writes the tree back as a script, and reduces it to a checksum.
#ifndef KELPBOX_SCRIPT_PRINT_H_
#define KELPBOX_SCRIPT_PRINT_H_

#include <cstdint>
#include <ostream>
#include <string>

#include "script/list.h"

namespace Script {

// "key = value" for a simple field, in any locale. An unset field is written as its mark, a number
// or a NaN.
std::string text_form(const Variable& item);

// Writes the fields below the list as a script. With `adjustable_only` it leaves out fixed fields
// and the declarations of arrays. With an indent of 0 the fields of the list share one line. Throws
// const char* "No other types can be printed out".
void print(const List& list, std::ostream& out, bool adjustable_only, unsigned indent);
// The number of fields that `print` would write.
unsigned printable_count(const List& list, bool adjustable_only);

class Checksum {
 public:
  // Adding several texts gives the same sum as adding their concatenation.
  void add_text(const char* text);
  // Adds the class names and the fields below the list. With `fixed_only` it leaves out adjustable
  // fields. Throws const char* "No other types can form part of a checksum".
  void add(const List& list, bool fixed_only);

  std::uint32_t value() const { return sum_; }

 private:
  std::uint32_t sum_ = 0;
  std::uint32_t shift_ = 0;
};

}  // namespace Script

#endif  // KELPBOX_SCRIPT_PRINT_H_
