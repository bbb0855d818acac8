// The roots of serial objects: what reports to a log, and what declares fields to a script.
#ifndef KELPBOX_SCRIPT_MASTER_H_
#define KELPBOX_SCRIPT_MASTER_H_

#include <string>

#include "script/list.h"
#include "script/log.h"

namespace Script {

// Hands reports to a log, if it has one, and drops them otherwise.
class Master {
 public:
  Master() = default;
  virtual ~Master() = default;
  Master(const Master&) = delete;
  Master& operator=(const Master&) = delete;

  virtual void message(float time, const LogItm& item);
  virtual void message(const LogItm& item);
  virtual void save() = 0;

  // Attaches a log, once. Throws the plain text "Trying to build log twice".
  void attach_log(Log& log);
  bool has_log() const { return log_ != nullptr; }

 private:
  Log* log_ = nullptr;
};

// An object of the tree that a script describes. It declares its fields, is filled by the
// reader, learns its path, and finishes itself, children before parents. Reports and saving
// are forwarded to the root that owns the tree.
class Declared : public Master {
 public:
  // The name of the class in checksums, such as "Tank".
  virtual const char* class_name() const = 0;
  // Appends the fields to the list.
  virtual void declare(List& list) = 0;
  // Checks and finishes the object once all of the tree has been read and verified.
  virtual void create() {}

  void set_path(Master& owner, const std::string& path);
  // The keys on the way from the root, as "context::tank::section[2]".
  const std::string& path() const { return path_; }

  void message(float time, const LogItm& item) override;
  void message(const LogItm& item) override;
  void save() override;

 protected:
  // A report of this object at level 1, "Error".
  LogItm problem(const char* heading) const { return LogItm(&path_, heading, Level::error); }

 private:
  Master* owner_ = nullptr;
  std::string path_;
};

}  // namespace Script

#endif  // KELPBOX_SCRIPT_MASTER_H_
