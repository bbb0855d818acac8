// Named parameters with units, through which the host and the wave code exchange values.
//
// A component declares the parameters that it needs. The host fills them in, in any units that
// convert. The component reads them in its own units and adds its remarks as comments. Failures are
// thrown as std::string and leave the set unchanged. Only one thread may use a set at a time.
#ifndef KELPBOX_BASE_PARAMS_H_
#define KELPBOX_BASE_PARAMS_H_

#include <cstdint>
#include <map>
#include <ostream>
#include <string>
#include <utility>
#include <vector>

#include "base/quantity.h"
#include "base/units.h"

namespace Base {

// One named value, as the host reads it.
class Param {
 public:
  Param() = default;
  Param(std::string name, const Quantity& quantity) : name_(std::move(name)), quantity_(quantity) {}

  std::string name() const { return name_; }
  // The stored number: neither converted nor checked.
  double value() const { return quantity_.value; }
  // The prefix letter, if any, and the unit's name. Meaningless for an enumeration.
  std::string units() const;
  bool is_enum() const { return quantity_.is_enum(); }
  // The name of the enumeration and of the member, even of an invalid value. Both throw "Trying to
  // convert to Enum from non Enum type".
  std::string enum_type() const;
  std::string enum_value() const;

  // The factor by which a number in the first units is multiplied to express it in the second.
  // Throws as resolve_units and `factor`.
  static double convert(const std::string& from, const std::string& to);
  // The units that a host can offer its user, among them the given ones. Throws as resolve_units.
  static std::vector<std::string> alternate(const std::string& units);

 private:
  std::string name_;
  Quantity quantity_;
};

// Severities of comments, shown as "Error::", "Warning::" and "Detail::".
namespace Severity {
inline constexpr std::uint32_t error = 0;
inline constexpr std::uint32_t warning = 1;
inline constexpr std::uint32_t detail = 2;
}  // namespace Severity

struct ParamComment {
  std::uint32_t severity = Severity::error;
  std::string text;
};

class Params {
 public:
  // In ascending order of names, compared byte by byte.
  using Entries = std::map<std::string, Quantity>;
  using Entry = Entries::value_type;

  // The value in the given units, or NaN if it is not set. Throws "<name>::Not found", and as
  // resolve_units and Quantity::get.
  double get(const std::string& name, const std::string& units) const;
  // The member number. Throws "<name>::Not found", and as enum_of_type and Quantity::enum_value.
  std::uint32_t get_enum(const std::string& name, const std::string& type) const;
  // The value in the base unit of the category. Throws as find_convertible, and "Invalid value" if
  // it is not set.
  double read(const std::string& name, UnitCategory category) const;
  // Throws as `read`.
  void require_value(const std::string& name, UnitCategory category) const;
  // The member number. Throws as find_enum, and "Invalid value" if it is not set.
  std::uint32_t read_enum(const std::string& name, std::int32_t type) const;

  // Each adds a valid entry. Throws "\"<name>\"::Duplicate parameter:" first, then as resolve_units
  // or make_enum.
  void insert(const std::string& name, double value, const std::string& units);
  void insert(const std::string& name, const std::string& member, const std::string& type);
  void insert(const std::string& name, double value, Units units);

  // Removes all entries and comments. The snapshot of param_list does not change.
  void clear();

  std::uint32_t comment_size() const { return static_cast<std::uint32_t>(comments_.size()); }
  // The comment after the prefix of its severity. Throws "Comment N out of range".
  std::string comment(std::uint32_t index) const;
  void add_comment(std::uint32_t severity, std::string text);

  // A snapshot of the entries in the order of their names, valid until the next call.
  const std::vector<Param>& param_list();

  // Prints to standard output, with an empty prefix.
  void print() const;
  // Writes a line "<prefix><name> = <value>" for each entry, then a line for each comment.
  void print(std::ostream& out, const std::string& prefix) const;

  const Entries& entries() const { return entries_; }
  bool contains(const std::string& name) const { return entries_.count(name) != 0; }

  // The entry of the given name. Throws "<name>::Not found".
  Entries::iterator find(const std::string& name);
  Entries::const_iterator find(const std::string& name) const;
  // As `find`. Also throws "<name>::not convertable" unless the units convert to the category.
  Entries::const_iterator find_convertible(const std::string& name, UnitCategory category) const;
  // As `find`. Also throws "<name>::wrong enum type" unless it is an enumeration of that type.
  Entries::const_iterator find_enum(const std::string& name, std::int32_t type) const;
  Quantity& at(const std::string& name);
  const Quantity& at(const std::string& name) const;

  // Each adds an invalid entry without a value. An entry that is already there is only checked and
  // stays as it is. Throw "Incompatible units for => <name>", and "Incompatible enum types for =>
  // <name>" or "Not an enum".
  void declare(const std::string& name, Units units);
  void declare_enum(const std::string& name, std::int32_t type);

  // Adds a copy of another set's entry. An entry that is already there is only checked. Returns the
  // quantity of the given entry. Throws "<name>::Incompatible types" unless the units convert.
  const Quantity& merge(const Entry& entry);

  // Stores a value given in the base unit of the category. Throws as `find` and Quantity::set.
  Entries::iterator set(const std::string& name, double value, UnitCategory category);
  // As `set`, for a value that replaces the requested one. Adds the warning "Poor match" if the two
  // differ by the relative tolerance or more. Throws "Invalid value" if no value was requested.
  Entries::iterator set_checked(const std::string& name, double value, UnitCategory category,
                                double tolerance);

 private:
  void require_absent(const std::string& name) const;

  std::vector<Param> list_;
  std::vector<ParamComment> comments_;
  Entries entries_;
};

}  // namespace Base

#endif  // KELPBOX_BASE_PARAMS_H_
