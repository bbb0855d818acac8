#include "script/log.h"

#include <array>
#include <ios>
#include <utility>

#include "base/compose.h"
#include "base/streams.h"

namespace Script {
namespace {

const char* level_word(std::uint32_t level) {
  static constexpr std::array<const char*, 7> words = {"Fatal", "Error", "Warning", "Alert",
                                                       "State", "Info",  "Detail"};
  return level < words.size() ? words[level] : "Unknown";
}

}  // namespace

LogItm::LogItm(std::string heading, std::uint32_t item_level)
    : name(std::move(heading)), level(item_level) {}

LogItm::LogItm(const std::string* path_entry, std::string heading, std::uint32_t item_level)
    : path{path_entry}, name(std::move(heading)), level(item_level) {}

LogItm& LogItm::add(const std::string& part) {
  text += part;
  return *this;
}

LogItm& LogItm::add(const char* part) {
  text += part;
  return *this;
}

LogItm& LogItm::add(unsigned number) {
  text += hex == 1 ? Base::compose(std::hex, std::showbase, number) : Base::compose(number);
  return *this;
}

LogItm& LogItm::add(double number) {
  text += Base::compose(number);
  return *this;
}

std::ostream& operator<<(std::ostream& out, const LogItm& item) {
  for (const std::string* entry : item.path) out << *entry << "::";
  return out << level_word(item.level) << "::" << item.text;
}

void SimpleLog::message(float time, const LogItm& item) {
  *out_ << time << "::";
  message(item);
}

void SimpleLog::message(const LogItm& item) { *out_ << item << '\n' << std::flush; }

void ProgressLog::message(float time, const LogItm& item) {
  SimpleLog(Base::progress()).message(time, item);
}

void ProgressLog::message(const LogItm& item) { SimpleLog(Base::progress()).message(item); }

}  // namespace Script
