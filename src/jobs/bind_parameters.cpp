#include "jobs/bind_parameters.h"

#include <fmt/format.h>

#include <algorithm>
#include <cmath>
#include <set>

#include "base/enumerations.h"
#include "jobs/nearest.h"
#include "jobs/quantity_text.h"

namespace Jobs {
namespace {

bool is_plain(const Base::Quantity& quantity) {
  return Base::category_of(quantity.units) == Base::Category::unit;
}

bool is_bool(const Base::Quantity& quantity) {
  return quantity.is_enum() && quantity.enum_type() == Base::EnumType::Bool;
}

bool contains(const std::vector<std::string>& names, const std::string& name) {
  return std::find(names.begin(), names.end(), name) != names.end();
}

std::string quoted(const std::string& text) { return '"' + text + '"'; }

// The value as the job has it, for messages.
std::string shown(const Value& value) {
  switch (value.kind) {
    case Value::Kind::text:
      return quoted(value.text);
    case Value::Kind::number:
      return fmt::format("{}", value.number);
    case Value::Kind::boolean:
      return value.boolean ? "true" : "false";
    case Value::Kind::array:
      return "an array";
    case Value::Kind::table:
      return "a table";
    default:
      return "a value of another kind";
  }
}

std::string kind_of_value(const Base::Quantity& declared) {
  if (is_bool(declared)) return "true or false";
  if (declared.is_enum())
    return "one of " + fmt::format("{}", fmt::join(members_of(declared), ", "));
  return kind_of(declared.units);
}

std::string units_advice(const Base::Quantity& declared) {
  return is_plain(declared) ? "leave out the units" : "use " + usual_units(declared.units);
}

std::optional<Base::Quantity> bind_enum(const std::string& name, const Value& value,
                                        const Base::Quantity& declared, Diagnostics& faults) {
  const std::string type = Base::Param(name, declared).enum_type();
  const std::vector<std::string> members = members_of(declared);
  std::string member = value.text;
  if (value.kind == Value::Kind::boolean && is_bool(declared)) {
    member = value.boolean ? "True" : "False";
  }
  if (!contains(members, member)) {
    faults.push_back({fmt::format("`{}` cannot be {}", name, shown(value)), value.span,
                      advice(member, members)});
    return std::nullopt;
  }
  return Base::Quantity(Base::make_enum(type, member));
}

std::optional<Base::Quantity> bind_number(const std::string& name, const Value& value,
                                          const Base::Quantity& declared, Diagnostics& faults) {
  if (!is_plain(declared)) {
    faults.push_back({fmt::format("`{}` is {}, but {} has no units", name, kind_of(declared.units),
                                  shown(value)),
                      value.span,
                      fmt::format("write it as text with units: {}", usual_units(declared.units))});
    return std::nullopt;
  }
  if (!std::isfinite(value.number)) {
    faults.push_back({fmt::format("`{}` is not a finite number", name), value.span, ""});
    return std::nullopt;
  }
  return Base::Quantity(value.number, declared.units);
}

std::optional<Base::Quantity> bind_text(const std::string& name, const Value& value,
                                        const Base::Quantity& declared, Diagnostics& faults) {
  QuantityText read;
  try {
    read = read_quantity(value.text);
  } catch (const std::string& message) {
    const bool bad_units = message.starts_with("Unknown units");
    faults.push_back({fmt::format("`{}` is {}, but {}", name, kind_of(declared.units),
                                  bad_units ? shown(value) + " has unknown units" : message),
                      value.span, units_advice(declared)});
    return std::nullopt;
  }
  if (!Base::compatible(read.units, declared.units.row)) {
    const bool bare = Base::category_of(read.units) == Base::Category::unit;
    faults.push_back(
        {fmt::format("`{}` is {}, but {} {}", name, kind_of(declared.units), shown(value),
                     bare ? "has no units" : "is " + kind_of(read.units)),
         value.span, units_advice(declared)});
    return std::nullopt;
  }
  const Base::Quantity bound(read.value, read.units);
  if (!std::isfinite(bound.get(Base::category_of(declared.units)))) {
    faults.push_back({fmt::format("`{}` is {}, but {} is too large", name, kind_of(declared.units),
                                  shown(value)),
                      value.span, ""});
    return std::nullopt;
  }
  return bound;
}

// The library takes seeds modulo 2^32, and without their fractions.
bool is_usable_seed(const Value& place, const Base::Quantity& seed, Diagnostics& faults) {
  constexpr double largest_seed = 4294967295.0;
  if (seed.value >= 0.0 && seed.value <= largest_seed && seed.value == std::floor(seed.value)) {
    return true;
  }
  faults.push_back({"`seed` must be a whole number from 0 to 4294967295", place.span, ""});
  return false;
}

std::vector<std::string> known_keys(const Declared& declared) {
  std::vector<std::string> known = declared.own_keys;
  for (const auto& [name, quantity] : declared.params.entries()) known.push_back(name);
  return known;
}

Diagnostic missing(const Part& part, const std::string& name, const Base::Quantity& quantity,
                   const Declared& declared) {
  std::string label = kind_of_value(quantity);
  if (!quantity.is_enum() && !is_plain(quantity)) label += " in " + usual_units(quantity.units);
  const auto meaning = declared.meanings.find(name);
  if (meaning != declared.meanings.end()) label = meaning->second + ": " + label;
  return {fmt::format("`{}` is missing in {}", name, part.title), part.span, std::move(label)};
}

}  // namespace

std::vector<std::string> members_of(const Base::Quantity& enumeration) {
  std::vector<std::string> members;
  try {
    for (std::uint32_t i = 0;; ++i) {
      members.push_back(Base::member_name(Base::make_enum(enumeration.enum_type(), i)));
    }
  } catch (const std::string&) {
    // The number after the last member is out of range.
    return members;
  }
}

std::string advice(const std::string& name, const std::vector<std::string>& known) {
  if (const auto near = nearest(name, known)) return fmt::format("did you mean `{}`?", *near);
  return fmt::format("use {}", fmt::join(known, ", "));
}

std::optional<Base::Quantity> bind_value(const std::string& name, const Value& value,
                                         const Base::Quantity& declared, Diagnostics& faults) {
  if (declared.is_enum()) return bind_enum(name, value, declared, faults);
  if (value.kind == Value::Kind::number) return bind_number(name, value, declared, faults);
  if (value.kind == Value::Kind::text) return bind_text(name, value, declared, faults);
  faults.push_back(
      {fmt::format("`{}` is {}, but the job has {}", name, kind_of(declared.units), shown(value)),
       value.span, units_advice(declared)});
  return std::nullopt;
}

std::optional<Base::Params> bind_parameters(const Part& part, const Declared& declared,
                                            Diagnostics& faults) {
  const std::size_t faults_before = faults.size();
  const std::vector<std::string> known = known_keys(declared);
  Base::Params bound;
  std::set<std::string> misspelt;  // what unknown keys probably mean

  for (const Member& member : part.parameters.members) {
    const std::string& name = member.key;
    if (declared.params.contains(name)) {
      if (const auto value = bind_value(name, member.value, declared.params.at(name), faults)) {
        if (name != "seed" || is_usable_seed(member.value, *value, faults)) {
          bound.merge({name, *value});
        }
      }
    } else if (!contains(declared.own_keys, name)) {
      if (const auto near = nearest(name, known)) misspelt.insert(*near);
      faults.push_back({fmt::format("unknown key `{}` in {}", name, part.title), member.key_span,
                        known.empty() ? "it takes no keys" : advice(name, known)});
    }
  }
  for (const auto& [name, quantity] : declared.params.entries()) {
    if (part.parameters.find(name) != nullptr || misspelt.count(name) != 0) continue;
    const auto fallback = declared.fallbacks.find(name);
    if (!quantity.state.invalid()) {
      bound.merge({name, quantity});
    } else if (fallback != declared.fallbacks.end()) {
      Value value;
      value.kind = Value::Kind::text;
      value.text = fallback->second;
      value.span = part.span;
      if (const auto filled = bind_value(name, value, quantity, faults)) {
        bound.merge({name, *filled});
      }
    } else if (!contains(declared.optional, name)) {
      faults.push_back(missing(part, name, quantity, declared));
    }
  }
  if (faults.size() != faults_before) return std::nullopt;
  return bound;
}

}  // namespace Jobs
