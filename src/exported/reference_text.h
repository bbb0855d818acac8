// The messages that refuse a null reference. Each names the declared type.
#ifndef KELPBOX_EXPORTED_REFERENCE_TEXT_H_
#define KELPBOX_EXPORTED_REFERENCE_TEXT_H_

#include <vector>

#include "base/params.h"
#include "base/vector.h"
#include "maths/front.h"

namespace Kelpbox {

template <typename Declared>
struct ReferenceText;

template <>
struct ReferenceText<Base::Params&> {
  static constexpr const char* null = "Base::Params & reference is null";
};
template <>
struct ReferenceText<const Base::Params&> {
  static constexpr const char* null = "Base::Params const & reference is null";
};
template <>
struct ReferenceText<const std::vector<double>&> {
  static constexpr const char* null = "std::vector< double > const & reference is null";
};
template <>
struct ReferenceText<const std::vector<unsigned int>&> {
  static constexpr const char* null = "std::vector< unsigned int > const & reference is null";
};
template <>
struct ReferenceText<const Synthesis::DispFronts&> {
  static constexpr const char* null = "Synthesis::DispFronts const & reference is null";
};
template <>
struct ReferenceText<Base::Vector&> {
  static constexpr const char* null = "Base::Vector & reference is null";
};

template <typename T>
struct ElementText;

template <>
struct ElementText<Base::Param> {
  static constexpr const char* null =
      "std::vector< Base::Param >::value_type const & reference is null";
};
template <>
struct ElementText<Maths::DisplayFront> {
  static constexpr const char* null =
      "std::vector< Maths::DisplayFront >::value_type const & reference is null";
};
template <>
struct ElementText<Synthesis::Front> {
  static constexpr const char* null =
      "std::vector< Synthesis::Front >::value_type const & reference is null";
};
template <>
struct ElementText<Maths::TransferFront> {
  static constexpr const char* null =
      "std::vector< Maths::TransferFront >::value_type const & reference is null";
};

}  // namespace Kelpbox

#endif  // KELPBOX_EXPORTED_REFERENCE_TEXT_H_
