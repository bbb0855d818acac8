// A field that takes one of a class's own named values.
#ifndef KELPBOX_SCRIPT_SUB_ENUM_H_
#define KELPBOX_SCRIPT_SUB_ENUM_H_

#include <cstdint>

#include "script/list.h"

namespace Script {

class SubEnum {
 public:
  virtual ~SubEnum() = default;
  // The names and numbers of the members. A number need not equal the member's position.
  virtual List& members() = 0;
  // The current member's name, or "Not found".
  const char* member_name();

  std::int32_t number = UnsetInteger;
};

}  // namespace Script

#endif  // KELPBOX_SCRIPT_SUB_ENUM_H_
