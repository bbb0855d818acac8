#include "fuzz/native/tame.h"

#include <algorithm>
#include <cmath>

namespace Fuzz {

bool is_tame(double number) {
  const double magnitude = std::abs(number);
  return number == 0.0 || (magnitude >= 1e-50 && magnitude <= 1e50);
}

bool is_tame(const std::vector<double>& numbers) {
  return std::all_of(numbers.begin(), numbers.end(), [](double number) { return is_tame(number); });
}

bool is_tame(const std::vector<Synthesis::Front>& fronts) {
  return std::all_of(fronts.begin(), fronts.end(), [](const Synthesis::Front& front) {
    return is_tame(std::vector<double>{front.amp, front.angle, front.phase, front.freq});
  });
}

bool is_tame(const Base::Params& params) {
  return std::all_of(params.entries().begin(), params.entries().end(), [](const auto& entry) {
    return entry.second.is_enum() || is_tame(entry.second.value);
  });
}

bool is_tame_formula(const std::string& text) {
  static const std::set<std::string> texts = {
      "",
      "0.1@Hz#0.001@m2s#2@Hz",
      "0.2@Hz#0.01*$[Hz]@ms#1@Hz",
      "0@s#0.02*sin(3*$[s])@m#8@s",
      "0@s#0.02@m#4@s#0.01@m#8@s",
      "0.2@Hz#5/16*hs[m]^2*fp[Hz]^4/$[Hz]^5*exp(0-1.25*(fp[Hz]/$[Hz])^4)@m2s#2@Hz",
      "2",
      "1#0.8@Hz#2",
      "cos($[rad])^2",
      "30@deg",
      "0.2*$[Hz]@rad",
  };
  return texts.count(text) != 0;
}

void Items::add(std::uint32_t id, std::uint32_t parent, bool tame) {
  parents_[id] = parent;
  if (!tame) wild_.insert(id);
}

void Items::set(std::uint32_t id, bool tame) {
  if (tame) {
    wild_values_.erase(id);
  } else {
    wild_values_.insert(id);
  }
}

bool Items::are_tame(std::uint32_t definition) const {
  for (const std::set<std::uint32_t>& ids : {wild_, wild_values_}) {
    for (const std::uint32_t id : ids) {
      if (belongs(id, definition)) return false;
    }
  }
  return true;
}

bool Items::belongs(std::uint32_t id, std::uint32_t definition) const {
  while (id != definition) {
    const auto found = parents_.find(id);
    if (found == parents_.end()) return false;
    id = found->second;
  }
  return true;
}

}  // namespace Fuzz
