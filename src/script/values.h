// Owns the values on the parser's stack, which holds plain pointers to them. A parse that fails
// leaves its values here, so none leaks.
//
// A place is reused after its value has been taken. The number of places is therefore the largest
// number of values held at once, however long the script is.
#ifndef KELPBOX_SCRIPT_VALUES_H_
#define KELPBOX_SCRIPT_VALUES_H_

#include <cstddef>
#include <deque>
#include <utility>
#include <vector>

#include "script/variable.h"

namespace Script {

class Values {
 public:
  // The pointer is valid until the value is taken.
  Variable* keep(Variable value) {
    if (free_.empty()) return &places_.emplace_back(std::move(value));
    Variable* place = free_.back();
    free_.pop_back();
    *place = std::move(value);
    return place;
  }

  // Call it once for each value kept.
  Variable take(Variable* place) {
    free_.push_back(place);
    return std::move(*place);
  }

  std::size_t places() const { return places_.size(); }

 private:
  std::deque<Variable> places_;
  std::vector<Variable*> free_;
};

}  // namespace Script

#endif  // KELPBOX_SCRIPT_VALUES_H_
