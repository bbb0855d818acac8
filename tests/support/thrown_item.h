// thrown() for calls that may also throw a log item.
#ifndef KELPBOX_TESTS_SUPPORT_THROWN_ITEM_H_
#define KELPBOX_TESTS_SUPPORT_THROWN_ITEM_H_

#include <sstream>
#include <string>

#include "script/log.h"
#include "support/thrown.h"

namespace Testing {

// "item: <heading>: <the item as it is printed>" for a thrown log item, and otherwise what
// thrown() returns.
template <typename Call>
std::string thrown_item(Call&& call) {
  try {
    return thrown(call);
  } catch (const Script::LogItm& item) {
    std::ostringstream out;
    out << "item: " << item.name << ": " << item;
    return out.str();
  }
}

}  // namespace Testing

#endif  // KELPBOX_TESTS_SUPPORT_THROWN_ITEM_H_
