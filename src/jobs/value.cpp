#include "jobs/value.h"

namespace Jobs {

const Value* Value::find(const std::string& key) const {
  for (const Member& member : members) {
    if (member.key == key) {
      return &member.value;
    }
  }
  return nullptr;
}

}  // namespace Jobs
