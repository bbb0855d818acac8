#include "script/serialise.h"

#include <fstream>
#include <ostream>

#include "base/streams.h"
#include "script/print.h"
#include "script/reader.h"
#include "script/walks.h"

namespace Script {

SubSerial::SubSerial(const char* key, BaseWrapObj& root) : root_object_(root) {
  root_.object(key, root);
}

SubSerial::~SubSerial() = default;

void SubSerial::read(std::ostream& report, const std::string& main_path,
                     const std::string& second_path) {
  second_path_ = second_path;

  Parser parser(root_);
  bool parsed = parser.read(main_path);
  if (parsed && !second_path.empty()) parsed = parser.read(second_path);
  if (parsed) parsed = parser.finish();
  if (!parsed) throw main_path + "::parse error";

  if (!verify(root_, report)) throw main_path + "::Failed to verify";
  set_paths(root_, *this);
  if (!has_log()) {
    Log* log = find_log(root_);
    if (!log) throw main_path + "::No log object found";
    attach_log(*log);
  }
  finish_objects(main_path);
}

void SubSerial::finish_objects(const std::string& main_path) {
  try {
    create(root_);
  } catch (const LogItm& item) {
    message(item);
    Base::progress() << "Exception:-" << item << '\n' << std::flush;
    throw std::string("Caught log exception");
  } catch (const std::string& message) {
    throw main_path + "::" + message;
  }
}

void SubSerial::save() {
  if (second_path_.empty()) return;
  std::ofstream file(second_path_);
  constexpr bool adjustable_only = true;
  constexpr unsigned no_indent = 0;
  if (file.is_open()) print(root_, file, adjustable_only, no_indent);
}

std::uint32_t SubSerial::checksum(bool fixed_only) const {
  Checksum sum;
  sum.add(root_object_.list(), fixed_only);
  return sum.value();
}

}  // namespace Script
