// The enumerations that a parameter can hold: type names, member names and their numbers.
//
// The library compares numbers and hosts pass names, so order and spelling are fixed. Failures are
// thrown as std::string.
#ifndef KELPBOX_BASE_ENUMERATIONS_H_
#define KELPBOX_BASE_ENUMERATIONS_H_

#include <cstdint>
#include <ostream>
#include <string>

#include "base/quantity.h"

namespace Base {

// Type numbers.
namespace EnumType {
inline constexpr std::int32_t Bool = 0;
inline constexpr std::int32_t Window = 1;
inline constexpr std::int32_t Ramp = 2;
inline constexpr std::int32_t RanGen = 3;
inline constexpr std::int32_t WaveMerge = 4;
inline constexpr std::int32_t WaveMod = 5;
inline constexpr std::int32_t DataMod = 6;
inline constexpr std::int32_t Geometry = 7;
inline constexpr std::int32_t SpreadFunc = 8;
}  // namespace EnumType

namespace Bool {
inline constexpr std::uint32_t False = 0;
inline constexpr std::uint32_t True = 1;
}  // namespace Bool

namespace RanGen {
inline constexpr std::uint32_t Default = 0;
}  // namespace RanGen

namespace SpreadFunc {
inline constexpr std::uint32_t CosS = 0;
inline constexpr std::uint32_t Cos2S = 1;
}  // namespace SpreadFunc

namespace WaveMerge {
inline constexpr std::uint32_t Null = 0;
inline constexpr std::uint32_t RMS = 1;
inline constexpr std::uint32_t Random = 2;
}  // namespace WaveMerge

// Member 0 of the type, in the invalid state. Throws "Enum type::<name>::Not found".
EnumValue enum_of_type(const std::string& type);
// Throws `Type "N" out of range in enum` for a number above 9.
EnumValue enum_of_type(std::int32_t type);

// Throws "Enum type::<type>::Not found" or "Enum type::<type>::<member>::Not found".
EnumValue make_enum(const std::string& type, const std::string& member, ValueState state = {});
// Throws `Type "N" out of range in enum` or `Value "N" out of range in enum`.
EnumValue make_enum(std::int32_t type, std::uint32_t member, ValueState state = {});

// Both throw `Type "N" out of range in enum` for a type that does not exist, and member_name throws
// `Value "N" out of range in enum`.
std::string type_name(const EnumValue& value);
std::string member_name(const EnumValue& value);

// Writes for example "Window::Hamming".
std::ostream& operator<<(std::ostream& out, const EnumValue& value);

}  // namespace Base

#endif  // KELPBOX_BASE_ENUMERATIONS_H_
