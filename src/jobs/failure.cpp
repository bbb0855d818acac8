#include "jobs/failure.h"

#include <exception>
#include <new>

#include "base/compose.h"
#include "script/log.h"

namespace Jobs {

std::string message_of_current() {
  try {
    throw;
  } catch (const std::string& message) {
    return message;
  } catch (const char* message) {
    return message;
  } catch (const Script::LogItm& item) {
    return Base::compose(item);
  } catch (const std::bad_alloc&) {
    return "there is not enough memory";
  } catch (const std::exception& failure) {
    return failure.what();
  } catch (...) {
    return "an unknown failure";
  }
}

std::string comment_text(const std::string& comment) {
  for (const std::string prefix : {"Error::", "Warning::", "Detail::"}) {
    if (comment.starts_with(prefix)) return comment.substr(prefix.size());
  }
  return comment;
}

}  // namespace Jobs
