#include "facade/failure_message.h"

#include <exception>
#include <new>

#include "base/compose.h"
#include "script/log.h"

namespace Kelpbox {

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

}  // namespace Kelpbox
