// One declared field of an object, or one value on the parser's stack.
//
// Failures of the script framework are thrown as plain texts (const char*), not as strings.
#ifndef KELPBOX_SCRIPT_VARIABLE_H_
#define KELPBOX_SCRIPT_VARIABLE_H_

#include <bit>
#include <cstdint>
#include <string>

namespace Script {

class BaseWrapObj;
class BaseWrapAry;
class SubEnum;

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

// Marks of fields: unset (no value yet, which fails verification), and no value (set to `$`).
inline constexpr std::int32_t UnsetInteger = 0x7FFFFFFF;
inline constexpr std::int32_t NoInteger = static_cast<std::int32_t>(0x80000000);
inline constexpr std::uint64_t UnsetRealBits = 0x7FF0000000000001;
inline constexpr std::uint64_t NoRealBits = 0x7FF8000000000000;
inline const double UnsetReal = std::bit_cast<double>(UnsetRealBits);
inline const double NoReal = std::bit_cast<double>(NoRealBits);
inline constexpr const char* UnsetString = "#UNDEF#";

class Variable {
 public:
  Variable() = default;
  explicit Variable(std::int32_t literal);
  explicit Variable(double literal);
  explicit Variable(std::string literal);
  // A member of an enumeration.
  Variable(const char* member, std::int32_t number);
  // A declared field: its kind, its key and its address, neither of them owned.
  Variable(VarType type, const char* key, std::int32_t* field);
  Variable(VarType type, const char* key, double* field);
  Variable(VarType type, const char* key, std::string* field);
  Variable(VarType type, const char* key, SubEnum* field);
  Variable(const char* key, BaseWrapObj* wrapper);
  Variable(const char* key, BaseWrapAry* wrapper);

  // Ownership of a string literal moves with the value: the source becomes empty.
  Variable(Variable&& other) noexcept;
  Variable& operator=(Variable&& other) noexcept;
  Variable(const Variable& other) = delete;
  Variable& operator=(const Variable& other) = delete;
  ~Variable();

  // The same entry again, for looking it up. A string literal is copied.
  Variable reference() const;

  VarType type() const { return type_; }
  const char* name() const { return name_; }

  // Reading; each throws its own text when the type is another.
  std::int32_t as_integer() const;       // "Wrong type 8"
  const std::string& as_string() const;  // "Wrong type 10"
  BaseWrapObj& as_object() const;        // "Wrong type 1"
  BaseWrapAry& as_array() const;         // "Wrong type 2"
  SubEnum& as_enum() const;              // "Wrong type 6"
  // "Wrong type"
  std::int32_t member_number() const;
  const std::int32_t& integer_field() const;
  const double& real_field() const;
  const std::string& string_field() const;

  // Removes the first and the last character of a string literal. "Wrong type", "Can't strip
  // this string as its too small".
  void strip_quotes();

  // Arithmetic of literals: integers stay integers and wrap, a real on either side makes a real.
  // An integer division by zero stops the process.
  friend Variable operator+(const Variable& left, const Variable& right);
  friend Variable operator-(const Variable& left, const Variable& right);
  friend Variable operator*(const Variable& left, const Variable& right);
  friend Variable operator/(const Variable& left, const Variable& right);
  Variable operator-() const;

  bool is_set() const;
  bool is_required() const;
  // Stores the source's value in the declared field. A real that goes into an integer is rounded,
  // and a loss told on standard output; one that does not fit throws std::string.
  void assign(Variable& source);
  // Stores the no-value mark in a declared number.
  void set_no_value();

 private:
  union Value {
    std::int32_t integer;
    double real;
    std::string* string;  // owned for a literal, the field's address otherwise
    std::int32_t* integer_field;
    double* real_field;
    SubEnum* enumeration;
    BaseWrapObj* object;
    BaseWrapAry* array;
  };

  bool is_literal_number() const;
  double widened() const;

  VarType type_ = VarType::empty;
  const char* name_ = nullptr;
  Value value_{};
};

}  // namespace Script

#endif  // KELPBOX_SCRIPT_VARIABLE_H_
