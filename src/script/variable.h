// One declared field of an object, or one value on the parser's stack.
//
// Misuse is thrown as a C string (const char*), as everywhere in the script framework.
#ifndef KELPBOX_SCRIPT_VARIABLE_H_
#define KELPBOX_SCRIPT_VARIABLE_H_

#include <cstdint>
#include <string>

#include "script/var_type.h"

namespace Script {

class BaseWrapObj;
class BaseWrapAry;
class SubEnum;

class Variable {
 public:
  Variable() = default;
  explicit Variable(std::int32_t literal);
  explicit Variable(double literal);
  explicit Variable(std::string literal);
  // A member of an enumeration.
  Variable(const char* member, std::int32_t number);
  // A declared field: its kind, its key and its address. Neither key nor field is owned.
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

  // A second Variable for the same field. A string literal is copied.
  Variable reference() const;

  VarType type() const { return type_; }
  const char* name() const { return name_; }

  // The value. Each throws its message for any other type.
  std::int32_t as_integer() const;       // "Wrong type 8"
  const std::string& as_string() const;  // "Wrong type 10"
  BaseWrapObj& as_object() const;        // "Wrong type 1"
  BaseWrapAry& as_array() const;         // "Wrong type 2"
  SubEnum& as_enum() const;              // "Wrong type 6"
  // These throw "Wrong type".
  std::int32_t member_number() const;
  const std::int32_t& integer_field() const;
  const double& real_field() const;
  const std::string& string_field() const;

  // Removes the first and the last character of a string literal. Throws "Wrong type" or "Can't
  // strip this string as its too small".
  void strip_quotes();

  // Arithmetic of literals (arithmetic.cpp). Integers stay integers and wrap; a real on either side
  // makes a real. Division of an integer by zero ends the process.
  friend Variable operator+(const Variable& left, const Variable& right);
  friend Variable operator-(const Variable& left, const Variable& right);
  friend Variable operator*(const Variable& left, const Variable& right);
  friend Variable operator/(const Variable& left, const Variable& right);
  Variable operator-() const;

  // Whether a declared field differs from its unset mark, or a wrapper has built anything.
  bool is_set() const;
  // Whether verification demands the field.
  bool is_required() const;

  // Stores the source's value in the declared field (assign.cpp). A real is rounded to an integer
  // field: a loss of resolution is reported on standard output, and a real that does not fit
  // throws std::string.
  void assign(Variable& source);
  // Stores the mark for no value in a declared number.
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
  static void require_numbers(const Variable& left, const Variable& right, const char* left_message,
                              const char* right_message);
  static bool both_integers(const Variable& left, const Variable& right);

  void assign_integer(const Variable& source);
  void assign_real(const Variable& source);
  void assign_string(Variable& source);
  void assign_enum(const Variable& source);

  VarType type_ = VarType::empty;
  const char* name_ = nullptr;
  Value value_{};
};

}  // namespace Script

#endif  // KELPBOX_SCRIPT_VARIABLE_H_
