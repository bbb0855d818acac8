// Named parameters with units, as they travel between the host and the wave code.
//
// A component declares what it needs, the host fills it in in units of its choice, the
// component reads it in the units it needs and leaves its remarks as comments. Every failure is
// thrown as a std::string and leaves the set unchanged. Not guarded: one thread at a time.
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

// One named value, as a host reads it.
class Param {
 public:
  Param() = default;
  Param(std::string name, const Quantity& quantity) : name_(std::move(name)), quantity_(quantity) {}

  std::string name() const { return name_; }
  // The stored number, with no conversion and no look at the state.
  double value() const { return quantity_.value; }
  // Has a meaning only where is_enum is false.
  std::string units() const;
  bool is_enum() const { return quantity_.is_enum(); }
  // Names of an enumeration and its member.
  // Both throw "Trying to convert to Enum from non Enum type".
  std::string enum_type() const;
  std::string enum_value() const;

  // The factor that turns a number in the first units into the second.
  static double convert(const std::string& from, const std::string& to);
  // The units that a host may offer beside the given ones.
  static std::vector<std::string> alternate(const std::string& units);

 private:
  std::string name_;
  Quantity quantity_;
};

// Severities of comments.
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
  // Ascending by plain byte-wise comparison of names.
  using Entries = std::map<std::string, Quantity>;
  using Entry = Entries::value_type;

  // The value of a parameter in the given units, set or not. Throws "<name>::Not found".
  double get(const std::string& name, const std::string& units) const;
  std::uint32_t get_enum(const std::string& name, const std::string& type) const;
  // The value in the base unit of the category. Throws as find_convertible, and "Invalid value"
  // when it is not set.
  double read(const std::string& name, UnitCategory category) const;
  // The member number. Throws as find_enum, and "Invalid value" when it is not set.
  std::uint32_t read_enum(const std::string& name, std::int32_t type) const;

  // Adds a valid entry. The name is looked at first: throws "\"<name>\"::Duplicate parameter:".
  void insert(const std::string& name, double value, const std::string& units);
  void insert(const std::string& name, const std::string& member, const std::string& type);
  void insert(const std::string& name, double value, Units units);

  // Empties entries and comments. The snapshot of param_list stays as it is.
  void clear();

  std::uint32_t comment_size() const { return static_cast<std::uint32_t>(comments_.size()); }
  // The text behind "Error::", "Warning::" or "Detail::". Throws "Comment N out of range".
  std::string comment(std::uint32_t index) const;
  void add_comment(std::uint32_t severity, std::string text);

  // A snapshot of the entries in order of names, valid until the next call.
  const std::vector<Param>& param_list();

  // To the standard output stream, with an empty prefix.
  void print() const;
  // Each entry behind the prefix, then each comment without it, a line each.
  void print(std::ostream& out, const std::string& prefix) const;

  const Entries& entries() const { return entries_; }
  bool contains(const std::string& name) const { return entries_.count(name) != 0; }

  // The entry of that name. Throws "<name>::Not found".
  Entries::iterator find(const std::string& name);
  Entries::const_iterator find(const std::string& name) const;
  // As find; throws "<name>::not convertable" unless the units convert to the category's.
  Entries::const_iterator find_convertible(const std::string& name, UnitCategory category) const;
  // As find; throws "<name>::wrong enum type" unless it is an enumeration of that type.
  Entries::const_iterator find_enum(const std::string& name, std::int32_t type) const;
  Quantity& at(const std::string& name);
  const Quantity& at(const std::string& name) const;

  // Announces a parameter: adds it unset and invalid, or checks that the one there agrees.
  // Throws "Incompatible units for => <name>", "Incompatible enum types for => <name>".
  void declare(const std::string& name, Units units);
  void declare_enum(const std::string& name, std::int32_t type);

  // Adds a copy of another set's entry, or checks that the one there has units that convert.
  // Returns the given entry's quantity. Throws "<name>::Incompatible types".
  const Quantity& merge(const Entry& entry);

  // Stores a value given in the base unit of the category.
  Entries::iterator set(const std::string& name, double value, UnitCategory category);
  // As set, and adds the warning "Poor match" when the value differs from the one asked for by
  // the relative tolerance or more. Throws "Invalid value" when none was asked for.
  Entries::iterator set_checked(const std::string& name, double value, UnitCategory category,
                                double tolerance);

 private:
  void check_absent(const std::string& name) const;

  std::vector<Param> list_;
  std::vector<ParamComment> comments_;
  Entries entries_;
};

}  // namespace Base

#endif  // KELPBOX_BASE_PARAMS_H_
