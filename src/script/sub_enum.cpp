#include "script/sub_enum.h"

namespace Script {

const char* SubEnum::member_name() {
  for (const Variable& member : members().items()) {
    if (member.member_number() == number) return member.name();
  }
  return "Not found";
}

}  // namespace Script
