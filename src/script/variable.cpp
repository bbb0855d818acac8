#include "script/variable.h"

#include <bit>
#include <utility>

#include "script/sub_enum.h"
#include "script/wrap.h"

namespace Script {

Variable::Variable(std::int32_t literal) : type_(VarType::integer) { value_.integer = literal; }
Variable::Variable(double literal) : type_(VarType::real) { value_.real = literal; }
Variable::Variable(std::string literal) : type_(VarType::string) {
  value_.string = new std::string(std::move(literal));
}
Variable::Variable(const char* member, std::int32_t number)
    : type_(VarType::member), name_(member) {
  value_.integer = number;
}
Variable::Variable(VarType type, const char* key, std::int32_t* field) : type_(type), name_(key) {
  value_.integer_field = field;
}
Variable::Variable(VarType type, const char* key, double* field) : type_(type), name_(key) {
  value_.real_field = field;
}
Variable::Variable(VarType type, const char* key, std::string* field) : type_(type), name_(key) {
  value_.string = field;
}
Variable::Variable(VarType type, const char* key, SubEnum* field) : type_(type), name_(key) {
  value_.enumeration = field;
}
Variable::Variable(const char* key, BaseWrapObj* wrapper) : type_(VarType::object), name_(key) {
  value_.object = wrapper;
}
Variable::Variable(const char* key, BaseWrapAry* wrapper) : type_(VarType::array), name_(key) {
  value_.array = wrapper;
}

Variable::Variable(Variable&& other) noexcept
    : type_(other.type_), name_(other.name_), value_(other.value_) {
  if (type_ == VarType::string) other.type_ = VarType::empty;
}

Variable& Variable::operator=(Variable&& other) noexcept {
  if (this == &other) return *this;
  if (type_ == VarType::string) delete value_.string;
  type_ = other.type_;
  name_ = other.name_;
  value_ = other.value_;
  if (type_ == VarType::string) other.type_ = VarType::empty;
  return *this;
}

Variable::~Variable() {
  if (type_ == VarType::string) delete value_.string;
}

Variable Variable::reference() const {
  if (type_ == VarType::string) return Variable(*value_.string);
  Variable same;
  same.type_ = type_;
  same.name_ = name_;
  same.value_ = value_;
  return same;
}

std::int32_t Variable::as_integer() const {
  if (type_ != VarType::integer) throw "Wrong type 8";
  return value_.integer;
}

const std::string& Variable::as_string() const {
  if (type_ != VarType::string) throw "Wrong type 10";
  return *value_.string;
}

BaseWrapObj& Variable::as_object() const {
  if (type_ != VarType::object) throw "Wrong type 1";
  return *value_.object;
}

BaseWrapAry& Variable::as_array() const {
  if (type_ != VarType::array) throw "Wrong type 2";
  return *value_.array;
}

SubEnum& Variable::as_enum() const {
  if (!is_enum_field(type_)) throw "Wrong type 6";
  return *value_.enumeration;
}

std::int32_t Variable::member_number() const {
  if (type_ != VarType::member) throw "Wrong type";
  return value_.integer;
}

const std::int32_t& Variable::integer_field() const {
  if (!is_integer_field(type_)) throw "Wrong type";
  return *value_.integer_field;
}

const double& Variable::real_field() const {
  if (!is_real_field(type_)) throw "Wrong type";
  return *value_.real_field;
}

const std::string& Variable::string_field() const {
  if (!is_string_field(type_)) throw "Wrong type";
  return *value_.string;
}

void Variable::strip_quotes() {
  if (type_ != VarType::string) throw "Wrong type";
  std::string& text = *value_.string;
  if (text.size() < 2) throw "Can't strip this string as its too small";
  text = text.substr(1, text.size() - 2);
}

bool Variable::is_set() const {
  switch (type_) {
    case VarType::adjustable_integer:
    case VarType::fixed_integer:
      return *value_.integer_field != UnsetInteger;
    case VarType::adjustable_real:
    case VarType::fixed_real:
      return std::bit_cast<std::uint64_t>(*value_.real_field) != UnsetRealBits;
    case VarType::adjustable_string:
    case VarType::fixed_string:
      return *value_.string != UnsetString;
    case VarType::adjustable_enum:
    case VarType::fixed_enum:
      return value_.enumeration->number != UnsetInteger;
    case VarType::object:
      return !value_.object->list().items().empty();
    case VarType::array:
      return !value_.array->lists().empty();
    default:
      throw "Not a ref type!!";
  }
}

bool Variable::is_required() const {
  if (type_ == VarType::object) {
    return value_.object->rule().fixed_size() || value_.object->required();
  }
  if (type_ == VarType::array) return value_.array->fixed_size() || value_.array->required();
  return true;
}

}  // namespace Script
