// Storing values in declared fields.

#include <cmath>
#include <limits>
#include <ostream>
#include <utility>

#include "base/compose.h"
#include "base/streams.h"
#include "script/sub_enum.h"
#include "script/variable.h"

namespace Script {
namespace {

// A relative change above this is reported as a loss.
constexpr double resolution = 0.001;

std::int32_t rounded(double value, const char* name) {
  using Limits = std::numeric_limits<std::int32_t>;
  const double nearest = std::floor(value + 0.5);
  // Written as a negation to refuse a NaN too.
  if (!(nearest >= Limits::min() && nearest <= Limits::max())) {
    throw Base::compose("Value ", value, " does not fit the integer variable ", name);
  }
  // A value that rounds to 0 is divided by 0. The loss is then infinite, except for an exact 0:
  // that gives a NaN, which is not reported.
  if (std::abs(value - nearest) / std::abs(nearest) > resolution) {
    Base::progress() << "Loss of resolution while rounding value " << value << " for variable "
                     << name << std::endl;
  }
  return static_cast<std::int32_t>(nearest);
}

}  // namespace

void Variable::assign(Variable& source) {
  if (is_integer_field(type_)) {
    assign_integer(source);
  } else if (is_real_field(type_)) {
    assign_real(source);
  } else if (is_string_field(type_)) {
    assign_string(source);
  } else if (is_enum_field(type_)) {
    assign_enum(source);
  } else {
    throw "Trying to set an unknown variable type";
  }
}

void Variable::assign_integer(const Variable& source) {
  std::int32_t& field = *value_.integer_field;
  if (source.type_ == VarType::integer) {
    field = source.value_.integer;
  } else if (source.type_ == VarType::real) {
    field = rounded(source.value_.real, name_);
  } else if (is_integer_field(source.type_)) {
    field = *source.value_.integer_field;
  } else {
    throw "Trying to set an int value with an unexpected type";
  }
}

void Variable::assign_real(const Variable& source) {
  double& field = *value_.real_field;
  if (source.type_ == VarType::integer) {
    field = source.value_.integer;
  } else if (source.type_ == VarType::real) {
    field = source.value_.real;
  } else if (is_real_field(source.type_)) {
    field = *source.value_.real_field;
  } else {
    // On purpose the same message as for integers.
    throw "Trying to set an int value with an unexpected type";
  }
}

void Variable::assign_string(Variable& source) {
  std::string& field = *value_.string;
  if (source.type_ == VarType::string) {
    // The literal is used up: the source becomes empty.
    const Variable literal = std::move(source);
    field = std::move(*literal.value_.string);
  } else if (is_string_field(source.type_)) {
    field = *source.value_.string;
  } else {
    throw "Trying to set a string variable with an unexpected type";
  }
}

void Variable::assign_enum(const Variable& source) {
  std::int32_t& field = value_.enumeration->number;
  if (source.type_ == VarType::member) {
    field = source.value_.integer;
  } else if (is_enum_field(source.type_)) {
    field = source.value_.enumeration->number;
  } else {
    throw "Trying to set an enum variable with an unexpected type";
  }
}

void Variable::set_no_value() {
  if (is_integer_field(type_)) {
    *value_.integer_field = NoInteger;
  } else if (is_real_field(type_)) {
    *value_.real_field = NoReal;
  } else {
    throw "Trying to set to NaN an item not of simple variable type";
  }
}

}  // namespace Script
