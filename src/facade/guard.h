// The guard inside the facades' top-level operations: it folds every failure into one string.
#ifndef KELPBOX_FACADE_GUARD_H_
#define KELPBOX_FACADE_GUARD_H_

#include <exception>
#include <sstream>
#include <string>

#include "script/log.h"

namespace Kelpbox {

enum class LogItems { hidden, shown };

inline std::string prefixed(const char* fixed_text, const std::string& detail) {
  std::ostringstream out;
  out << fixed_text << ": " << detail;
  return out.str();
}

// Runs the operation. A string passes unchanged; a standard exception becomes the fixed text, a
// colon, a blank and its own text, and so does a log item where log items are shown; anything
// else, a plain text (const char*) among it, becomes the fixed text alone.
template <LogItems log_items = LogItems::hidden, typename Operation>
auto guarded(const char* fixed_text, Operation operation) -> decltype(operation()) {
  try {
    return operation();
  } catch (const Script::LogItm& item) {
    if constexpr (log_items == LogItems::shown) throw prefixed(fixed_text, item.text);
    throw std::string(fixed_text);
  } catch (const std::string&) {
    throw;
  } catch (const std::exception& failure) {
    throw prefixed(fixed_text, failure.what());
  } catch (...) {
    throw std::string(fixed_text);
  }
}

}  // namespace Kelpbox

#endif  // KELPBOX_FACADE_GUARD_H_
