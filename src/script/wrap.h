// Wrappers through which a list holds an object, or an array of objects. A wrapper exists from the
// start; what it wraps is built when a script first opens it.
#ifndef KELPBOX_SCRIPT_WRAP_H_
#define KELPBOX_SCRIPT_WRAP_H_

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "script/list.h"
#include "script/master.h"
#include "script/rule.h"

namespace Script {

class BaseWrapObj {
 public:
  explicit BaseWrapObj(Rule rule) : rule_(rule) {}
  virtual ~BaseWrapObj() = default;
  BaseWrapObj(const BaseWrapObj&) = delete;
  BaseWrapObj& operator=(const BaseWrapObj&) = delete;

  virtual void create() = 0;
  // Whether the object must be present although its rule does not say so.
  virtual bool required() const { return false; }
  virtual void set_path(Master& owner, const std::string& path) = 0;
  // Makes the object and lets it declare its fields. Does nothing when there is one already.
  virtual void build() = 0;

  const Rule& rule() const { return rule_; }
  List& list() { return list_; }

 protected:
  Rule rule_;
  List list_;
};

// One object of class T, a Declared.
template <typename T>
class WrapObj : public BaseWrapObj {
 public:
  explicit WrapObj(Rule rule = Rule::exactly(1)) : BaseWrapObj(rule) {}

  void create() override { object_->create(); }
  void set_path(Master& owner, const std::string& path) override { object_->set_path(owner, path); }
  void build() override {
    if (object_) return;
    object_ = std::make_unique<T>();
    list_.name(object_->class_name());
    object_->declare(list_);
  }

  // Null until built.
  T* get() const { return object_.get(); }
  // As `get`, but throws const char* "Object not built" instead of returning null.
  T& built() const {
    if (!object_) throw "Object not built";
    return *object_;
  }

 private:
  std::unique_ptr<T> object_;
};

class BaseWrapAry {
 public:
  explicit BaseWrapAry(Rule rule) : rule_(rule) {}
  virtual ~BaseWrapAry() = default;
  BaseWrapAry(const BaseWrapAry&) = delete;
  BaseWrapAry& operator=(const BaseWrapAry&) = delete;

  virtual void create() = 0;
  // For the element of the given script index.
  virtual void set_path(Master& owner, const std::string& path, std::int32_t index) = 0;
  // Whether there must be elements although the rule does not say so.
  virtual bool required() const { return false; }
  virtual bool fixed_size() const { return rule_.fixed_size(); }

  // Makes the elements `first` to `last`, or checks that they are the ones that exist. Returns the
  // first list. Throws const char* for bounds that the rule or an earlier build refuses, and
  // std::string for too many elements.
  List& build(std::int32_t last, std::int32_t first);
  // Copies the first element's fields to the others. Returns the number of array elements inside
  // all elements. Throws const char* "Wrong build order" when there are no elements, and
  // std::string for too many copies.
  std::uint64_t replicate();
  // The list of the element of that script index. Throws const char*: "Trying to access a list of
  // an unreplicated array object", "Accessing array out of bounds".
  List& element(std::int32_t index);

  // The first script index.
  std::int32_t offset() const { return offset_; }
  // The script index of the element at a position.
  std::int32_t index(std::size_t position) const {
    return offset_ + static_cast<std::int32_t>(position);
  }
  // One list for each element. Empty until built.
  std::vector<List>& lists() { return lists_; }
  const std::vector<List>& lists() const { return lists_; }

 protected:
  // Makes an object for each of `lists_` and lets it declare its fields there.
  virtual void build() = 0;
  // Throws a LogItm headed "General": "Array element N is out of bounds".
  void require_position(std::size_t position) const;

  Rule rule_;
  std::int32_t offset_ = 0;
  std::vector<List> lists_;
};

// An array of objects of class T, a Declared.
template <typename T>
class WrapAry : public BaseWrapAry {
 public:
  explicit WrapAry(Rule rule) : BaseWrapAry(rule) {}

  void create() override {
    for (auto& object : objects_) object->create();
  }
  void set_path(Master& owner, const std::string& path, std::int32_t index) override {
    (*this)[static_cast<std::size_t>(index - offset_)].set_path(owner, path);
  }

  using BaseWrapAry::build;

  std::size_t size() const { return objects_.size(); }
  // By position from 0, whatever the first script index is. Throws a LogItm headed "General":
  // "Array element N is out of bounds".
  T& operator[](std::size_t position) const {
    require_position(position);
    return *objects_[position];
  }

 protected:
  void build() override {
    for (auto& list : lists_) {
      objects_.push_back(std::make_unique<T>());
      list.name(objects_.back()->class_name());
      objects_.back()->declare(list);
    }
  }

 private:
  std::vector<std::unique_ptr<T>> objects_;
};

}  // namespace Script

#endif  // KELPBOX_SCRIPT_WRAP_H_
