#include "script/wrap.h"

#include "script/walks.h"

namespace Script {
namespace {

// The bound of one statement, so that a typing error does not exhaust the memory.
constexpr std::uint64_t most_elements_at_once = 100000;

void require_few_elements(std::uint64_t elements) {
  if (elements <= most_elements_at_once) return;
  throw "Array of " + std::to_string(elements) + " elements is too large: at most " +
      std::to_string(most_elements_at_once) + " can be made at once";
}

// The number of array elements at any depth below a list.
std::uint64_t elements_below(const List& list) {
  std::uint64_t count = 0;
  for (const Variable& item : list.items()) {
    if (item.type() == VarType::object) {
      count += elements_below(item.as_object().list());
    } else if (item.type() == VarType::array) {
      count += item.as_array().lists().size();
      for (const List& element : item.as_array().lists()) count += elements_below(element);
    }
  }
  return count;
}

}  // namespace

List& BaseWrapAry::build(std::int32_t last, std::int32_t first) {
  const std::int64_t size = std::int64_t{last} - first + 1;
  if (!lists_.empty()) {
    if (size != static_cast<std::int64_t>(lists_.size())) throw "Rebuilding with a differnt size";
    if (first != offset_) throw "Rebuilding with a differnt offset";
    return lists_.front();
  }
  if (last < first) throw "max is not greater than min";
  if (rule_.offset_rule == OffsetRule::fixed && first != rule_.required_offset) {
    throw "Wrong offset value";
  }
  const auto count = static_cast<std::uint64_t>(size);
  if (!rule_.admits(count)) throw "Size of array out of bounds";
  require_few_elements(count);
  offset_ = first;
  lists_.resize(count);
  build();
  return lists_.front();
}

std::uint64_t BaseWrapAry::replicate() {
  if (lists_.empty()) throw "Wrong build order";
  const std::uint64_t inside = elements_below(lists_.front()) * lists_.size();
  require_few_elements(inside);
  for (std::size_t i = 1; i < lists_.size(); ++i) clone(lists_[i], lists_.front());
  return inside;
}

List& BaseWrapAry::element(std::int32_t index) {
  if (lists_.empty()) throw "Trying to access a list of an unreplicated array object";
  const std::int64_t position = std::int64_t{index} - offset_;
  if (position < 0 || position >= static_cast<std::int64_t>(lists_.size())) {
    throw "Accessing array out of bounds";
  }
  return lists_[static_cast<std::size_t>(position)];
}

void BaseWrapAry::require_position(std::size_t position) const {
  if (position < lists_.size()) return;
  throw LogItm("General", Level::error)
      .add("Array element ")
      .add(static_cast<unsigned>(position))
      .add(" is out of bounds");
}

}  // namespace Script
