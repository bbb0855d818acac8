// Objects of one base class from which a script chooses: the flap or the piston of a wavemaker
// bank.
#ifndef KELPBOX_SCRIPT_ALTERNATIVES_H_
#define KELPBOX_SCRIPT_ALTERNATIVES_H_

#include <cstddef>
#include <cstdint>
#include <vector>

#include "script/rule.h"
#include "script/wrap.h"

namespace Script {

// The objects built so far, in the order of building.
template <typename Base>
class WrapBase {
 public:
  explicit WrapBase(Rule rule) : rule_(rule) {}

  // Under a fixed offset rule each index must follow the last one. Throws const char*: "Item not
  // consecutively numbered".
  void require_next(std::int32_t index) {
    if (rule_.offset_rule != OffsetRule::fixed) return;
    if (started_ && index != last_ + 1) throw "Item not consecutively numbered";
    started_ = true;
    last_ = index;
  }
  // Throws const char* "Out of space" when the rule sets an upper limit and this object exceeds it.
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

// One of the objects, at its index among the alternatives.
template <typename T, typename B>
class WrapAlternative : public WrapObj<T> {
 public:
  WrapAlternative(WrapBase<B>& base, std::int32_t index, Rule rule = Rule::at_most(1))
      : WrapObj<T>(rule), base_(base), index_(index) {}

  bool required() const override { return base_.required(); }
  void build() override {
    if (this->get()) return;
    base_.require_next(index_);
    WrapObj<T>::build();
    base_.add(this->get());
  }

 private:
  WrapBase<B>& base_;
  std::int32_t index_;
};

}  // namespace Script

#endif  // KELPBOX_SCRIPT_ALTERNATIVES_H_
