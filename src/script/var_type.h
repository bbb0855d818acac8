// The kinds of Variable, and the marks of fields that hold no value.
#ifndef KELPBOX_SCRIPT_VAR_TYPE_H_
#define KELPBOX_SCRIPT_VAR_TYPE_H_

#include <bit>
#include <cstdint>

namespace Script {

enum class VarType : std::int32_t {
  empty = 0,  // also "not found"
  integer = 1,
  real = 2,
  string = 3,
  member = 4,  // of an enumeration
  adjustable_integer = 5,
  fixed_integer = 6,
  adjustable_real = 7,
  fixed_real = 8,
  adjustable_string = 9,
  fixed_string = 10,
  adjustable_enum = 11,
  fixed_enum = 12,
  object = 13,
  array = 14,
};

inline bool is_integer_field(VarType type) {
  return type == VarType::adjustable_integer || type == VarType::fixed_integer;
}
inline bool is_real_field(VarType type) {
  return type == VarType::adjustable_real || type == VarType::fixed_real;
}
inline bool is_string_field(VarType type) {
  return type == VarType::adjustable_string || type == VarType::fixed_string;
}
inline bool is_enum_field(VarType type) {
  return type == VarType::adjustable_enum || type == VarType::fixed_enum;
}

// Tuning values, which the settings file holds.
inline bool is_adjustable(VarType type) {
  return type == VarType::adjustable_integer || type == VarType::adjustable_real ||
         type == VarType::adjustable_string || type == VarType::adjustable_enum;
}
// The description of the installation, which the checksum covers.
inline bool is_fixed(VarType type) {
  return type == VarType::fixed_integer || type == VarType::fixed_real ||
         type == VarType::fixed_string || type == VarType::fixed_enum;
}

// An unset field has not been read and fails verification. A field without a value was set to `$`.
// Reals are compared by their bits, since a NaN equals nothing.
inline constexpr std::int32_t UnsetInteger = 0x7FFFFFFF;
inline constexpr std::int32_t NoInteger = static_cast<std::int32_t>(0x80000000);
inline constexpr std::uint64_t UnsetRealBits = 0x7FF0000000000001;
inline constexpr std::uint64_t NoRealBits = 0x7FF8000000000000;
inline const double UnsetReal = std::bit_cast<double>(UnsetRealBits);
inline const double NoReal = std::bit_cast<double>(NoRealBits);
inline constexpr const char* UnsetString = "#UNDEF#";

}  // namespace Script

#endif  // KELPBOX_SCRIPT_VAR_TYPE_H_
