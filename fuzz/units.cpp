// Units and parameter sets. The input chooses units and values to convert, and then operations on
// one set.
//
// The properties: conversion there and back gives the same number, and a third unit on the way does
// not matter. The text of units reads back as these units. A value is read as it was inserted. A
// failed operation has a message and leaves the set as it was.
#include <fuzzer/FuzzedDataProvider.h>

#include <algorithm>
#include <cmath>
#include <sstream>

#include "base/enumerations.h"
#include "base/params.h"
#include "base/unit_table.h"
#include "fuzz/property.h"

namespace {

using Base::Params;
using Base::Units;
using Fuzz::refusal;
using Fuzz::require;

// Conversions round a few times, and raise prefixes to a power.
constexpr double tolerance = 1e-13;

bool near(double left, double right) {
  return std::abs(left - right) <= tolerance * std::abs(right);
}

// A number that stays a normal number in all units.
bool moderate(double value) { return std::abs(value) > 1e-200 && std::abs(value) < 1e200; }

// The text of units: mostly a name of the table, with or without a prefix.
std::string units_from(FuzzedDataProvider& input) {
  if (input.ConsumeIntegralInRange(0, 7) == 0) return input.ConsumeRandomLengthString(12);
  std::string text;
  const auto& prefix = Base::prefix_table[input.ConsumeIntegralInRange<std::size_t>(
      0, Base::prefix_table.size() - 1)];
  if (prefix.letter != '\0') text += prefix.letter;
  const auto row = input.ConsumeIntegralInRange<std::size_t>(
      0, Base::unit_table.size() + Base::unit_aliases.size() - 1);
  text += row < Base::unit_table.size() ? Base::unit_table[row].name
                                        : Base::unit_aliases[row - Base::unit_table.size()].name;
  return text;
}

std::optional<Units> resolved(const std::string& text) {
  Units units;
  if (const auto message = refusal([&] { units = Base::resolve_units(text); })) {
    require(*message == "Unknown units - " + text, "unknown units are reported");
    return std::nullopt;
  }
  return units;
}

// A whole name takes precedence: "msec" is written as "ms", which is a metre second.
void check_text(Units units) {
  const std::string text = Base::units_text(units);
  const auto again = resolved(text);
  require(again.has_value(), "units are read after they are written");
  const bool whole_name = again->prefix == 0 && units.prefix != 0;
  require(*again == units || whole_name, "units read back the same");
}

std::optional<double> factor_between(Units from, Units to) {
  double result = 0.0;
  if (const auto message = refusal([&] { result = Base::factor(from, to); })) {
    require(*message == "Unable to convert from \"" + Base::units_text(from) + "\" to \"" +
                            Base::units_text(to) + "\"",
            "a conversion that is not possible is reported");
    return std::nullopt;
  }
  require(std::isfinite(result) && result > 0.0, "a factor is a positive number");
  return result;
}

// Prefixes that are equal cancel, even between units with different powers of the prefix. Such
// units are not part of chains.
bool same_power(Units left, Units right) {
  return Base::unit_table[left.row].power == Base::unit_table[right.row].power;
}

void check_conversions(Units a, Units b, Units c) {
  require(factor_between(a, a) == 1.0, "units convert to themselves");
  const auto ab = factor_between(a, b);
  const auto ba = factor_between(b, a);
  require(ab.has_value() == ba.has_value(), "conversion is possible both ways or not at all");
  require(ab.has_value() == Base::compatible(a, b.row), "compatible units convert");
  if (!ab) return;
  require(near(*ab * *ba, 1.0), "conversion there and back gives the same number");
  const auto ac = factor_between(a, c);
  const auto bc = factor_between(b, c);
  require(ac.has_value() == bc.has_value(), "units of one kind convert to the same units");
  if (ac && same_power(a, b) && same_power(b, c)) {
    require(near(*ab * *bc, *ac), "a unit on the way does not matter");
  }
  const Base::UnitCategory category = Base::category_of(b);
  require(near(Base::factor_to_base(a, category) / Base::factor_to_base(b, category), *ab) ||
              !same_power(a, b),
          "conversion through the base unit gives the same number");
}

void check_alternatives(Units units) {
  const auto offered = Base::alternate(units);
  const std::string own = Base::units_text(units);
  require(std::count(offered.begin(), offered.end(), own) == 1, "units are offered themselves");
  for (const std::string& text : offered) {
    const auto other = resolved(text);
    require(other.has_value(), "units that are offered are known");
    require(text == own || Base::compatible(units, other->row), "units that are offered convert");
  }
}

bool same(const Base::Quantity& left, const Base::Quantity& right) {
  return left.units == right.units && Fuzz::same_bits(left.value, right.value) &&
         left.state == right.state;
}

bool same(const Params& left, const Params& right) {
  const auto same_entry = [](const Params::Entry& a, const Params::Entry& b) {
    return a.first == b.first && same(a.second, b.second);
  };
  return left.entries().size() == right.entries().size() &&
         std::equal(left.entries().begin(), left.entries().end(), right.entries().begin(),
                    same_entry);
}

// Operations on one set, with names that often clash.
class Operations {
 public:
  explicit Operations(FuzzedDataProvider& input) : input_(input) {}

  void perform() {
    const std::string name(1, input_.PickValueInArray({'a', 'b', 'c', 'd'}));
    const Params before = params_;
    const auto refused = refusal([&] { perform(name); });
    require(!refused || same(before, params_), "a failed operation leaves the set as it was");
    require(params_.param_list().size() == params_.entries().size(), "the list has all entries");
    std::ostringstream printed;
    params_.print(printed, "");
    for (const auto& [key, quantity] : params_.entries()) {
      require(printed.str().find(key + " = ") != std::string::npos, "each entry is printed");
    }
  }

 private:
  void perform(const std::string& name) {
    switch (input_.ConsumeIntegralInRange(0, 9)) {
      case 0:
        return insert(name);
      case 1:
        return insert_member(name);
      case 2:
        return set(name);
      case 3:
        return set_checked(name);
      case 4: {
        const std::string units = units_from(input_);
        params_.get(name, units);
        return;
      }
      case 5:
        params_.get_enum(name, type_name());
        return;
      case 6:
        params_.read(name, category());
        return;
      case 7:
        params_.declare(name, Base::resolve_units(units_from(input_)));
        require(params_.contains(name), "a declared parameter is there");
        return;
      case 8:
        params_.declare_enum(name, input_.ConsumeIntegralInRange(0, 8));
        return;
      default:
        return merge(name);
    }
  }

  void insert(const std::string& name) {
    const double value = number();
    const std::string units = units_from(input_);
    params_.insert(name, value, units);
    require(Fuzz::same_bits(params_.get(name, units), value) || std::isnan(value),
            "a value is read as it was inserted");
  }

  void insert_member(const std::string& name) {
    const std::string type = type_name();
    const std::string member = input_.PickValueInArray<const char*>(
        {"False", "True", "Null", "Hamming", "BothSides", "Random", ""});
    params_.insert(name, member, type);
    require(params_.param_list().size() == params_.entries().size(), "the list has all entries");
    for (const Base::Param& param : params_.param_list()) {
      if (param.name() != name) continue;
      require(param.enum_type() == type && param.enum_value() == member,
              "a member is read as it was inserted");
    }
  }

  void set(const std::string& name) {
    const double value = number();
    const Base::UnitCategory category = this->category();
    params_.set(name, value, category);
    if (moderate(value)) {
      require(near(params_.read(name, category), value), "a value is read as it was set");
    }
  }

  void set_checked(const std::string& name) {
    const double value = number();
    const Base::UnitCategory category = this->category();
    const double asked = params_.contains(name) ? params_.read(name, category) : 0.0;
    const std::uint32_t comments = params_.comment_size();
    params_.set_checked(name, value, category, 0.01);
    const bool poor = params_.comment_size() > comments;
    if (moderate(value) && moderate(asked) && std::abs(value) > 1e-19) {
      require(poor || std::abs(asked / value - 1.0) < 0.01, "a value that differs is reported");
      require(!poor || std::abs(asked / value - 1.0) >= 0.01, "only such a value is reported");
    }
  }

  void merge(const std::string& name) {
    Params other;
    other.declare(name, Base::resolve_units(units_from(input_)));
    const bool absent = !params_.contains(name);
    const Params::Entry& entry = *other.find(name);
    params_.merge(entry);
    require(!absent || same(params_.at(name), entry.second), "a missing entry is copied");
  }

  double number() {
    if (input_.ConsumeBool()) return input_.ConsumeFloatingPointInRange(-1e3, 1e3);
    return std::bit_cast<double>(input_.ConsumeIntegral<std::uint64_t>());
  }

  Base::UnitCategory category() { return input_.ConsumeIntegralInRange<std::uint32_t>(0, 25); }

  std::string type_name() {
    return input_.PickValueInArray<const char*>(
        {"Bool", "Window", "Geometry", "WaveMerge", "Nothing"});
  }

  FuzzedDataProvider& input_;
  Params params_;
};

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const Fuzz::Quiet quiet;
  FuzzedDataProvider input(data, size);
  const auto a = resolved(units_from(input));
  const auto b = resolved(units_from(input));
  const auto c = resolved(units_from(input));
  if (a && b && c) {
    check_text(*a);
    check_alternatives(*a);
    check_conversions(*a, *b, *c);
  }
  Operations operations(input);
  for (int i = 0; i < 50 && input.remaining_bytes() > 0; ++i) operations.perform();
  return 0;
}
