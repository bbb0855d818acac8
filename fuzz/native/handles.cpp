#include "fuzz/native/handles.h"

#include <algorithm>
#include <iterator>

namespace Fuzz {

std::optional<jlong> Handles::pick(Type type, std::size_t back, bool owned) const {
  const auto fits = [&](const Handle& handle) {
    return handle.type == type && (!owned || handle.lent == Lent::no);
  };
  const auto count = static_cast<std::size_t>(std::count_if(live_.begin(), live_.end(), fits));
  if (count == 0) return std::nullopt;
  std::size_t left = back % count;
  for (auto it = live_.rbegin(); it != live_.rend(); ++it) {
    if (fits(*it) && left-- == 0) return it->address;
  }
  return std::nullopt;
}

bool Handles::owned(jlong address) const {
  return std::any_of(live_.begin(), live_.end(), [&](const Handle& handle) {
    return handle.address == address && handle.lent == Lent::no;
  });
}

bool Handles::alive(jlong address, Type type) const {
  return std::any_of(live_.begin(), live_.end(), [&](const Handle& handle) {
    return handle.address == address && handle.type == type;
  });
}

void Handles::add(const Handle& handle) {
  if (!alive(handle.address, handle.type)) live_.push_back(handle);
}

void Handles::remove(std::size_t index) {
  const Handle ended = live_[index];
  live_.erase(live_.begin() + static_cast<std::ptrdiff_t>(index));
  if (ended.type == Type::experiment || ended.type == Type::params) {
    // Nothing to do for a definition: it has no handle of its own.
    for (std::size_t i = live_.size(); i-- > 0;) {
      if (i < live_.size() && live_[i].lent != Lent::no && live_[i].lent != Lent::forever &&
          live_[i].lent != Lent::element && live_[i].owner == ended.address) {
        remove(i);
      }
    }
  } else {
    end_elements(ended.address);
  }
}

void Handles::end(jlong address, Type type) {
  for (std::size_t i = 0; i < live_.size(); ++i) {
    if (live_[i].address == address && live_[i].type == type) {
      remove(i);
      return;
    }
  }
}

void Handles::end_elements(jlong vector) {
  std::erase_if(live_, [&](const Handle& handle) {
    return handle.lent == Lent::element && handle.owner == vector;
  });
}

void Handles::end_lent(jlong experiment, std::optional<std::uint32_t> item,
                       std::optional<Lent> lent) {
  for (std::size_t i = live_.size(); i-- > 0;) {
    if (i >= live_.size()) continue;
    const Handle& handle = live_[i];
    if (handle.lent == Lent::no || handle.lent == Lent::forever || handle.lent == Lent::element) {
      continue;
    }
    if (handle.owner != experiment || (item && handle.item != *item) ||
        (lent && handle.lent != *lent)) {
      continue;
    }
    remove(i);
  }
}

std::optional<Handle> Handles::take_owned() {
  const auto owned = [&](bool experiments) {
    return std::find_if(live_.begin(), live_.end(), [&](const Handle& handle) {
      return handle.lent == Lent::no && (!experiments || handle.type == Type::experiment);
    });
  };
  auto found = owned(true);
  if (found == live_.end()) found = owned(false);
  if (found == live_.end()) return std::nullopt;
  const Handle taken = *found;
  remove(static_cast<std::size_t>(found - live_.begin()));
  return taken;
}

void Handles::unpin(jlong experiment) {
  for (auto pin = pins_.begin(); pin != pins_.end();) {
    std::erase(pin->second, experiment);
    pin = pin->second.empty() ? pins_.erase(pin) : std::next(pin);
  }
}

}  // namespace Fuzz
