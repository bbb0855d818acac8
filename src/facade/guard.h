// The guard inside the facades' top-level operations: it converts every failure to a std::string.
//
//   thrown inside                        thrown by the guard
//   std::string                          the same string
//   std::exception                       "<fixed message>: <what()>"
//   Script::LogItm, LogItems::shown      "<fixed message>: <its message>"
//   Script::LogItm, LogItems::hidden     the fixed message
//   anything else, const char* included  the fixed message
#ifndef KELPBOX_FACADE_GUARD_H_
#define KELPBOX_FACADE_GUARD_H_

#include <algorithm>
#include <cstring>
#include <exception>
#include <new>
#include <string>

#include "base/compose.h"
#include "script/log.h"

namespace Kelpbox {

enum class LogItems { hidden, shown };

// The message, or the part of it that a string holds without memory.
inline std::string text_of(const char* fixed_message) {
  try {
    return fixed_message;
  } catch (const std::bad_alloc&) {
    return {fixed_message, std::min(std::strlen(fixed_message), std::string().capacity())};
  }
}

// "<fixed message>: <reason>". If memory has run out, the fixed message alone.
template <typename Reason>
std::string with_reason(const char* fixed_message, const Reason& reason) {
  try {
    return Base::compose(fixed_message, ": ", reason);
  } catch (const std::bad_alloc&) {
    return text_of(fixed_message);
  }
}

// Returns what the operation returns.
template <LogItems log_items = LogItems::hidden, typename Operation>
auto guarded(const char* fixed_message, Operation operation) -> decltype(operation()) {
  try {
    return operation();
  } catch (const Script::LogItm& item) {
    if constexpr (log_items == LogItems::shown) throw with_reason(fixed_message, item.text);
    throw text_of(fixed_message);
  } catch (const std::string&) {
    throw;
  } catch (const std::exception& failure) {
    throw with_reason(fixed_message, failure.what());
  } catch (...) {
    throw text_of(fixed_message);
  }
}

}  // namespace Kelpbox

#endif  // KELPBOX_FACADE_GUARD_H_
