#include "base/params.h"

#include <ostream>

#include "base/compose.h"
#include "base/enumerations.h"
#include "base/near.h"
#include "base/streams.h"

namespace Base {
namespace {

EnumValue enum_of(const Quantity& quantity) {
  if (!quantity.is_enum()) {
    throw std::string("Trying to convert to Enum from non Enum type");
  }
  return quantity.held_member();
}

[[noreturn]] void throw_not_found(const std::string& name) { throw name + "::Not found"; }

std::string comment_text(const ParamComment& comment) {
  switch (comment.severity) {
    case Severity::error:
      return "Error::" + comment.text;
    case Severity::warning:
      return "Warning::" + comment.text;
    case Severity::detail:
      return "Detail::" + comment.text;
    default:
      return comment.text;
  }
}

}  // namespace

std::string Param::units() const { return units_text(quantity_.units); }

std::string Param::enum_type() const { return type_name(enum_of(quantity_)); }

std::string Param::enum_value() const { return member_name(enum_of(quantity_)); }

double Param::convert(const std::string& from, const std::string& to) {
  const Units from_units = resolve_units(from);
  return factor(from_units, resolve_units(to));
}

std::vector<std::string> Param::alternate(const std::string& units) {
  return Base::alternate(resolve_units(units));
}

double Params::get(const std::string& name, const std::string& units) const {
  const Quantity& quantity = at(name);
  return quantity.get(resolve_units(units));
}

std::uint32_t Params::get_enum(const std::string& name, const std::string& type) const {
  const Quantity& quantity = at(name);
  return quantity.enum_value(enum_of_type(type).type);
}

double Params::read(const std::string& name, UnitCategory category) const {
  return find_convertible(name, category)->second.get(category);
}

void Params::require_value(const std::string& name, UnitCategory category) const {
  static_cast<void>(read(name, category));
}

std::uint32_t Params::read_enum(const std::string& name, std::int32_t type) const {
  return find_enum(name, type)->second.enum_value(type);
}

void Params::require_absent(const std::string& name) const {
  if (contains(name)) {
    throw "\"" + name + "\"::Duplicate parameter:";
  }
}

void Params::insert(const std::string& name, double value, const std::string& units) {
  require_absent(name);
  entries_.emplace(name, Quantity(value, resolve_units(units)));
}

void Params::insert(const std::string& name, const std::string& member, const std::string& type) {
  require_absent(name);
  entries_.emplace(name, Quantity(make_enum(type, member)));
}

void Params::insert(const std::string& name, double value, Units units) {
  require_absent(name);
  entries_.emplace(name, Quantity(value, units));
}

void Params::clear() {
  entries_.clear();
  comments_.clear();
}

std::string Params::comment(std::uint32_t index) const {
  if (index >= comments_.size()) {
    throw compose("Comment ", index, " out of range");
  }
  return comment_text(comments_[index]);
}

void Params::add_comment(std::uint32_t severity, std::string text) {
  comments_.push_back({severity, std::move(text)});
}

const std::vector<Param>& Params::param_list() {
  list_.clear();
  for (const auto& [name, quantity] : entries_) {
    list_.emplace_back(name, quantity);
  }
  return list_;
}

void Params::print() const { print(Base::progress(), ""); }

void Params::print(std::ostream& out, const std::string& prefix) const {
  // Flushes every line, because hosts read the lines as they are written.
  for (const auto& [name, quantity] : entries_) {
    out << prefix << name << " = " << quantity << std::endl;
  }
  for (const ParamComment& comment : comments_) {
    out << comment_text(comment) << std::endl;
  }
}

Params::Entries::iterator Params::find(const std::string& name) {
  const auto entry = entries_.find(name);
  if (entry == entries_.end()) {
    throw_not_found(name);
  }
  return entry;
}

Params::Entries::const_iterator Params::find(const std::string& name) const {
  const auto entry = entries_.find(name);
  if (entry == entries_.end()) {
    throw_not_found(name);
  }
  return entry;
}

Params::Entries::const_iterator Params::find_convertible(const std::string& name,
                                                         UnitCategory category) const {
  const auto entry = find(name);
  if (!entry->second.compatible(default_units(category).row)) {
    throw name + "::not convertable";
  }
  return entry;
}

Params::Entries::const_iterator Params::find_enum(const std::string& name,
                                                  std::int32_t type) const {
  const auto entry = find(name);
  if (!entry->second.is_enum() || entry->second.enum_type() != type) {
    throw name + "::wrong enum type";
  }
  return entry;
}

Quantity& Params::at(const std::string& name) { return find(name)->second; }

const Quantity& Params::at(const std::string& name) const { return find(name)->second; }

void Params::declare(const std::string& name, Units units) {
  const auto entry = entries_.find(name);
  if (entry == entries_.end()) {
    entries_.emplace(name, Quantity(units));
  } else if (!entry->second.compatible(units.row)) {
    throw "Incompatible units for => " + name;
  }
}

void Params::declare_enum(const std::string& name, std::int32_t type) {
  const auto entry = entries_.find(name);
  if (entry == entries_.end()) {
    entries_.emplace(name, Quantity(enum_of_type(type)));
  } else if (entry->second.enum_type() != type) {
    throw "Incompatible enum types for => " + name;
  }
}

const Quantity& Params::merge(const Entry& entry) {
  const auto own = entries_.find(entry.first);
  if (own == entries_.end()) {
    entries_.emplace(entry);
  } else if (!own->second.compatible(entry.second.units.row)) {
    throw entry.first + "::Incompatible types";
  }
  return entry.second;
}

Params::Entries::iterator Params::set(const std::string& name, double value,
                                      UnitCategory category) {
  const auto entry = find(name);
  entry->second.set(category, value);
  return entry;
}

Params::Entries::iterator Params::set_checked(const std::string& name, double value,
                                              UnitCategory category, double tolerance) {
  const auto entry = find(name);
  const double asked = entry->second.get(category);
  if (!(relative_difference(asked, value) < tolerance)) {
    add_comment(Severity::warning, "Poor match");
  }
  entry->second.set(category, value);
  return entry;
}

}  // namespace Base
