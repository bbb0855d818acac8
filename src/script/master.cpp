#include "script/master.h"

namespace Script {

void Master::message(float time, const LogItm& item) {
  if (log_) log_->message(time, item);
}

void Master::message(const LogItm& item) {
  if (log_) log_->message(item);
}

void Master::attach_log(Log& log) {
  if (log_) throw "Trying to build log twice";
  log_ = &log;
  log.build();
}

void Declared::set_path(Master& owner, const std::string& path) {
  owner_ = &owner;
  path_ = path;
}

void Declared::message(float time, const LogItm& item) {
  if (owner_) owner_->message(time, item);
}

void Declared::message(const LogItm& item) {
  if (owner_) owner_->message(item);
}

void Declared::save() {
  if (owner_) owner_->save();
}

}  // namespace Script
