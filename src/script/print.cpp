#include "script/print.h"

#include <array>
#include <charconv>

#include "script/sub_enum.h"
#include "script/wrap.h"

namespace Script {
namespace {

constexpr int significant_digits = 6;
constexpr unsigned on_one_line = 0;  // as an indent
constexpr int sign_bit = 0x80;
constexpr std::uint32_t shift_period = 24;  // of the checksum

// As printf's %g writes it in the "C" locale.
std::string real_text(double value) {
  std::array<char, 32> digits;
  const auto end = std::to_chars(digits.data(), digits.data() + digits.size(), value,
                                 std::chars_format::general, significant_digits);
  return {digits.data(), end.ptr};
}

// A block of one field takes one line, a block of several a line for each. An empty block is left
// out.
void print_block(const std::string& head, const List& list, std::ostream& out, bool adjustable_only,
                 unsigned indent) {
  const unsigned count = printable_count(list, adjustable_only);
  if (count == 0) return;
  const std::string lead(indent, '\t');
  out << lead << head << " {";
  if (count == 1) {
    print(list, out, adjustable_only, on_one_line);
    out << "}";
    if (indent != on_one_line) out << '\n';
  } else {
    out << '\n';
    print(list, out, adjustable_only, indent + 1);
    out << lead << "}\n";
  }
}

void print_array(const std::string& key, const BaseWrapAry& array, std::ostream& out,
                 bool adjustable_only, unsigned indent) {
  if (array.lists().empty()) return;
  if (!adjustable_only) {
    out << std::string(indent, '\t') << key << "[" << array.index(array.lists().size() - 1) << ".."
        << array.offset() << "];\n";
  }
  for (std::size_t i = 0; i < array.lists().size(); ++i) {
    const std::string head = key + "[" + std::to_string(array.index(i)) + "]";
    print_block(head, array.lists()[i], out, adjustable_only, indent);
  }
}

}  // namespace

std::string text_form(const Variable& item) {
  switch (item.type()) {
    case VarType::integer:
      return "Int val = " + std::to_string(item.as_integer());
    case VarType::string:
      return "Sting val = " + item.as_string();
    case VarType::adjustable_integer:
    case VarType::fixed_integer:
      return std::string(item.name()) + " = " + std::to_string(item.integer_field());
    case VarType::adjustable_real:
    case VarType::fixed_real:
      return std::string(item.name()) + " = " + real_text(item.real_field());
    case VarType::adjustable_string:
    case VarType::fixed_string:
      // As a C string: anything after a zero character is left out.
      return std::string(item.name()) + " = \"" + item.string_field().c_str() + "\"";
    case VarType::adjustable_enum:
    case VarType::fixed_enum:
      return std::string(item.name()) + " = " + item.as_enum().member_name();
    default:
      throw "No other types can be printed out";
  }
}

void print(const List& list, std::ostream& out, bool adjustable_only, unsigned indent) {
  for (const Variable& item : list.items()) {
    if (is_adjustable(item.type()) || is_fixed(item.type())) {
      if (adjustable_only && is_fixed(item.type())) continue;
      out << std::string(indent, '\t') << text_form(item) << ";";
      if (indent != on_one_line) out << '\n';
    } else if (item.type() == VarType::object) {
      const List& object = item.as_object().list();
      if (object.name()) print_block(item.name(), object, out, adjustable_only, indent);
    } else if (item.type() == VarType::array) {
      print_array(item.name(), item.as_array(), out, adjustable_only, indent);
    } else {
      throw "No other types can be printed out";
    }
  }
}

unsigned printable_count(const List& list, bool adjustable_only) {
  unsigned count = 0;
  for (const Variable& item : list.items()) {
    if (is_adjustable(item.type())) {
      ++count;
    } else if (is_fixed(item.type())) {
      if (!adjustable_only) ++count;
    } else if (item.type() == VarType::object) {
      const List& object = item.as_object().list();
      if (object.name()) count += printable_count(object, adjustable_only);
    } else if (item.type() == VarType::array) {
      for (const List& element : item.as_array().lists()) {
        count += printable_count(element, adjustable_only);
      }
    }
  }
  return count;
}

void Checksum::add_text(const char* text) {
  for (; *text; ++text) {
    // Signed on purpose: it decides the checksums of sites with letters beyond ASCII.
    const std::int32_t widened = (static_cast<unsigned char>(*text) ^ sign_bit) - sign_bit;
    sum_ += static_cast<std::uint32_t>(widened) << shift_;
    if (++shift_ == shift_period) shift_ = 0;
  }
}

void Checksum::add(const List& list, bool fixed_only) {
  if (list.name()) add_text(list.name());
  for (const Variable& item : list.items()) {
    if (is_adjustable(item.type()) || is_fixed(item.type())) {
      if (fixed_only && is_adjustable(item.type())) continue;
      add_text(text_form(item).c_str());
    } else if (item.type() == VarType::object) {
      const List& object = item.as_object().list();
      if (object.name()) add(object, fixed_only);
    } else if (item.type() == VarType::array) {
      for (const List& element : item.as_array().lists()) add(element, fixed_only);
    } else {
      throw "No other types can form part of a checksum";
    }
  }
}

}  // namespace Script
