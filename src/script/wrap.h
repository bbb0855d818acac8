// Wrappers through which a list holds an object, an array of objects, or one of several
// alternative objects of a common base.
#ifndef KELPBOX_SCRIPT_WRAP_H_
#define KELPBOX_SCRIPT_WRAP_H_

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "script/list.h"
#include "script/master.h"

namespace Script {

enum class SizeRule : std::int32_t { any = 0, at_most = 1, at_least = 2, exactly = 3 };

// How many elements there may be, and where their indices begin.
struct Rule {
  SizeRule size_rule = SizeRule::any;
  std::uint64_t limit = 0;
  std::int32_t offset_rule = 0;  // 2: the first index must equal required_offset
  std::int32_t required_offset = 0;

  bool admits(std::uint64_t count) const;
  // Whether at least one element must be there.
  bool fixed_size() const {
    return (size_rule == SizeRule::at_least || size_rule == SizeRule::exactly) && limit > 0;
  }
};

class BaseWrapObj {
 public:
  explicit BaseWrapObj(Rule rule) : rule_(rule) {}
  virtual ~BaseWrapObj() = default;
  BaseWrapObj(const BaseWrapObj&) = delete;
  BaseWrapObj& operator=(const BaseWrapObj&) = delete;

  virtual void create() = 0;
  virtual bool required() const { return false; }
  virtual void set_path(Master& owner, const std::string& path) = 0;
  // Makes the object if there is none yet, and lets it declare its fields.
  virtual void build() = 0;

  const Rule& rule() const { return rule_; }
  List& list() { return list_; }
  const List& list() const { return list_; }

 protected:
  Rule rule_;
  List list_;
};

// The objects built so far among several alternatives of one base class.
template <typename Base>
class WrapBase {
 public:
  explicit WrapBase(Rule rule) : rule_(rule) {}

  // Throws "Item not consecutively numbered" when the offset rule is in force and the index
  // does not follow the last one.
  void announce(std::int32_t index) {
    if (rule_.offset_rule != 2) return;
    if (started_ && index != last_ + 1) throw "Item not consecutively numbered";
    started_ = true;
    last_ = index;
  }
  // Throws "Out of space" when the rule no longer admits the count.
  void add(Base* object) {
    objects_.push_back(object);
    const bool limited =
        rule_.size_rule == SizeRule::at_most || rule_.size_rule == SizeRule::exactly;
    if (limited && objects_.size() > rule_.limit) throw "Out of space";
  }
  bool required() const { return rule_.fixed_size(); }

  std::size_t size() const { return objects_.size(); }
  Base& operator[](std::size_t position) const { return *objects_[position]; }

 private:
  Rule rule_;
  std::vector<Base*> objects_;
  bool started_ = false;
  std::int32_t last_ = 0;
};

// One object of class T, a Declared.
template <typename T>
class WrapObj : public BaseWrapObj {
 public:
  explicit WrapObj(Rule rule = {SizeRule::exactly, 1, 0, 0}) : BaseWrapObj(rule) {}

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

 private:
  std::unique_ptr<T> object_;
};

// One alternative among several of the base class B, at its index in their order.
template <typename T, typename B>
class WrapAlternative : public WrapObj<T> {
 public:
  WrapAlternative(WrapBase<B>& base, std::int32_t index, Rule rule = {SizeRule::at_most, 1, 0, 0})
      : WrapObj<T>(rule), base_(base), index_(index) {}

  bool required() const override { return base_.required(); }
  void build() override {
    if (this->get()) return;
    base_.announce(index_);
    WrapObj<T>::build();
    base_.add(this->get());
  }

 private:
  WrapBase<B>& base_;
  std::int32_t index_;
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
  virtual bool required() const { return false; }
  virtual bool fixed_size() const { return rule_.fixed_size(); }

  // Makes the elements `first` to `last`, or checks that they are there already. Returns the
  // first list.
  List& build(std::int32_t last, std::int32_t first);
  // Copies the first element's fields to the others. Returns how many array elements there are
  // inside of all elements. Throws "Wrong build order".
  std::uint64_t replicate();
  // The list of the element of that script index.
  List& element(std::int32_t index);

  const Rule& rule() const { return rule_; }
  std::int32_t offset() const { return offset_; }
  // The script index of the element at a position.
  std::int32_t index(std::size_t position) const {
    return offset_ + static_cast<std::int32_t>(position);
  }
  std::vector<List>& lists() { return lists_; }
  const std::vector<List>& lists() const { return lists_; }

 protected:
  // Makes an object for each of `lists_` and lets it declare its fields there.
  virtual void build() = 0;
  // A LogItm headed "General": "Array element N is out of bounds".
  void check_position(std::size_t position) const;

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
    check_position(position);
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
