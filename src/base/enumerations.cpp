#include "base/enumerations.h"

#include <algorithm>
#include <iterator>
#include <span>
#include <string_view>

#include "base/compose.h"

namespace Base {
namespace {

using Members = std::span<const std::string_view>;

// clang-format off
constexpr std::string_view bool_members[] = {"False", "True"};
// Hosts pass "Barlett" and "BarlettHann", spelled like this.
constexpr std::string_view window_members[] = {
    "Null", "Barlett", "BarlettHann", "Blackman", "BlackmanHarris", "BlackmanNuttall", "Hamming",
    "Nuttall", "Triangular", "Rectangular"};
constexpr std::string_view ramp_members[] = {"Null", "Sine", "Linear"};
constexpr std::string_view ran_gen_members[] = {"Default", "FullRandom", "Distribute"};
constexpr std::string_view wave_merge_members[] = {"Null", "RMS", "Random"};
constexpr std::string_view wave_mod_members[] = {
    "GainAdjust", "AngleSweep", "AngleSpread", "AngleSet", "AngleChange", "PhaseRandom",
    "PhaseWNoise", "PhaseSet", "PhaseChange"};
constexpr std::string_view data_mod_members[] = {"Null", "Wrap", "Stretch"};
constexpr std::string_view geometry_members[] = {
    "NoSides", "PlusSide", "MinusSide", "BothSides", "TwoDimensional"};
constexpr std::string_view spread_func_members[] = {"CosS", "Cos2S"};

struct EnumRow {
  std::string_view name;
  Members members;
};

constexpr EnumRow enum_table[] = {
    {"Bool", bool_members},
    {"Window", window_members},
    {"Ramp", ramp_members},
    {"RanGen", ran_gen_members},
    {"WaveMerge", wave_merge_members},
    {"WaveMod", wave_mod_members},
    {"DataMod", data_mod_members},
    {"Geometry", geometry_members},
    {"SpreadFunc", spread_func_members},
};
// clang-format on

[[noreturn]] void throw_type_range(std::int32_t type) {
  throw compose("Type \"", type, "\" out of range in enum");
}

[[noreturn]] void throw_value_range(std::uint32_t member) {
  throw compose("Value \"", member, "\" out of range in enum");
}

// One above the last row on purpose, and negative numbers pass too: hosts rely on which numbers are
// refused.
constexpr std::int32_t highest_accepted_type = 9;

void require_accepted_type(std::int32_t type) {
  if (type > highest_accepted_type) {
    throw_type_range(type);
  }
}

bool has_row(std::int32_t type) {
  return type >= 0 && type < static_cast<std::int32_t>(std::size(enum_table));
}

const EnumRow& row_of(std::int32_t type) {
  if (!has_row(type)) {
    throw_type_range(type);
  }
  return enum_table[type];
}

// An accepted type without a row has no members.
Members members_of(std::int32_t type) {
  return has_row(type) ? enum_table[type].members : Members{};
}

std::int32_t find_type(const std::string& type) {
  const auto found = std::find_if(std::begin(enum_table), std::end(enum_table),
                                  [&](const EnumRow& row) { return row.name == type; });
  if (found == std::end(enum_table)) {
    throw "Enum type::" + type + "::Not found";
  }
  return static_cast<std::int32_t>(found - std::begin(enum_table));
}

}  // namespace

EnumValue enum_of_type(const std::string& type) { return {find_type(type), 0, InvalidState}; }

EnumValue enum_of_type(std::int32_t type) {
  require_accepted_type(type);
  return {type, 0, InvalidState};
}

EnumValue make_enum(const std::string& type, const std::string& member, ValueState state) {
  const std::int32_t row = find_type(type);
  const Members members = enum_table[row].members;
  const auto found = std::find(members.begin(), members.end(), member);
  if (found == members.end()) {
    throw "Enum type::" + type + "::" + member + "::Not found";
  }
  return {row, static_cast<std::uint32_t>(found - members.begin()), state};
}

EnumValue make_enum(std::int32_t type, std::uint32_t member, ValueState state) {
  require_accepted_type(type);
  if (member >= members_of(type).size()) {
    throw_value_range(member);
  }
  return {type, member, state};
}

std::string type_name(const EnumValue& value) { return std::string(row_of(value.type).name); }

std::string member_name(const EnumValue& value) {
  const Members members = row_of(value.type).members;
  if (value.member >= members.size()) {
    throw_value_range(value.member);
  }
  return std::string(members[value.member]);
}

std::ostream& operator<<(std::ostream& out, const EnumValue& value) {
  return out << type_name(value) << "::" << member_name(value);
}

}  // namespace Base
