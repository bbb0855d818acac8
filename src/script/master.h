// The base classes of everything that a script describes. A class of the site model derives from
// Declared and names its keys in `declare`; docs/site-keys.md lists them.
#ifndef KELPBOX_SCRIPT_MASTER_H_
#define KELPBOX_SCRIPT_MASTER_H_

#include <string>

#include "script/list.h"
#include "script/log.h"

namespace Script {

// Forwards reports to its log. Without a log they are discarded.
class Master {
 public:
  Master() = default;
  virtual ~Master() = default;
  Master(const Master&) = delete;
  Master& operator=(const Master&) = delete;

  virtual void message(float time, const LogItm& item);
  virtual void message(const LogItm& item);
  virtual void save() = 0;

  // Throws const char* "Trying to build log twice" when there is a log already.
  void attach_log(Log& log);
  bool has_log() const { return log_ != nullptr; }

 private:
  Log* log_ = nullptr;
};

// An object of the tree. It declares its fields. The reader fills them, sets its path and calls its
// `create`, children before parents. It forwards reports and saving to the root of the tree.
class Declared : public Master {
 public:
  // The name of the class, such as "Tank". It is part of the checksum.
  virtual const char* class_name() const = 0;
  // Adds each key and the field that it sets to the list.
  virtual void declare(List& list) = 0;
  // Checks and finishes the object, after the whole tree has been read and verified.
  virtual void create() {}

  void set_path(Master& owner, const std::string& path);
  // The keys from the root to this object, such as "context::tank::section[2]".
  const std::string& path() const { return path_; }

  void message(float time, const LogItm& item) override;
  void message(const LogItm& item) override;
  void save() override;

 protected:
  // An error report about this object, to be thrown.
  LogItm problem(const char* heading) const { return LogItm(&path_, heading, Level::error); }

 private:
  Master* owner_ = nullptr;
  std::string path_;
};

}  // namespace Script

#endif  // KELPBOX_SCRIPT_MASTER_H_
