#include "jobs/quantity_text.h"

#include <fmt/format.h>

#include <cmath>
#include <cstddef>
#include <vector>

#include "base/literal.h"

namespace Jobs {
namespace {

bool is_blank(char c) { return c == ' ' || c == '\t'; }
bool is_digit(char c) { return c >= '0' && c <= '9'; }
bool is_letter(char c) { return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z'); }

std::string_view trimmed(std::string_view text) {
  while (!text.empty() && is_blank(text.front())) {
    text.remove_prefix(1);
  }
  while (!text.empty() && is_blank(text.back())) {
    text.remove_suffix(1);
  }
  return text;
}

std::size_t digits_from(std::string_view text, std::size_t at) {
  std::size_t end = at;
  while (end < text.size() && is_digit(text[end])) {
    ++end;
  }
  return end - at;
}

// The length of the number at the beginning, or 0: a sign, digits with or without a point, and an
// exponent. An "e" without digits is no exponent.
std::size_t number_length(std::string_view text) {
  std::size_t at = !text.empty() && (text[0] == '+' || text[0] == '-') ? 1 : 0;
  const std::size_t whole = digits_from(text, at);
  at += whole;
  std::size_t fraction = 0;
  if (at < text.size() && text[at] == '.') {
    fraction = digits_from(text, at + 1);
    at += 1 + fraction;
  }
  if (whole + fraction == 0) {
    return 0;
  }
  if (at < text.size() && (text[at] == 'e' || text[at] == 'E')) {
    std::size_t exponent = at + 1;
    if (exponent < text.size() && (text[exponent] == '+' || text[exponent] == '-')) {
      ++exponent;
    }
    if (const std::size_t digits = digits_from(text, exponent); digits > 0) {
      at = exponent + digits;
    }
  }
  return at;
}

std::string quoted(std::string_view text) { return '"' + std::string(text) + '"'; }

bool is_word_for_no_number(std::string_view text) {
  if (!text.empty() && (text[0] == '+' || text[0] == '-')) {
    text.remove_prefix(1);
  }
  std::string word;
  for (const char c : text.substr(0, 9)) {
    if (!is_letter(c)) {
      break;
    }
    word += static_cast<char>(c | 0x20);
  }
  return word == "inf" || word == "infinity" || word == "nan";
}

// Refuses what goes on as a number would: "1,5", "1.2.3", "2-3", "0x10". No unit begins like that.
void require_units(std::string_view text, std::string_view rest) {
  if (rest.empty() || std::string_view(".,+-_*/'xX").find(rest[0]) == std::string_view::npos) {
    return;
  }
  std::string message = quoted(text) + " is not a number";
  if (rest[0] == ',') {
    message += ": the decimal mark is a point, and digits are not grouped";
  }
  throw message;
}

}  // namespace

QuantityText read_quantity(std::string_view text) {
  text = trimmed(text);
  const std::size_t length = number_length(text);
  if (length == 0) {
    throw quoted(text) +
        (is_word_for_no_number(text) ? " is not a finite number" : " is not a number");
  }
  const std::string_view rest = text.substr(length);
  require_units(text, rest);
  QuantityText quantity;
  quantity.value = Base::real_literal(std::string(text.substr(0, length)).c_str());
  if (!std::isfinite(quantity.value)) {
    throw quoted(text) + " is not a finite number";
  }
  quantity.units = Base::resolve_units(trimmed(rest));
  return quantity;
}

std::string kind_of(Base::Units units) {
  namespace Category = Base::Category;
  switch (Base::category_of(units)) {
    case Category::unit:
      return "a plain number";
    case Category::length:
      return "a length";
    case Category::velocity:
      return "a velocity";
    case Category::acceleration:
      return "an acceleration";
    case Category::area:
      return "an area";
    case Category::volume:
      return "a volume";
    case Category::force:
      return "a force";
    case Category::pressure:
      return "a pressure";
    case Category::flow:
      return "a flow rate";
    case Category::time:
      return "a time";
    case Category::frequency:
      return "a frequency";
    case Category::length_time:
      return "an amplitude density";
    case Category::variance:
      return "a variance density";
    case Category::mass:
      return "a mass";
    case Category::energy:
      return "an energy";
    case Category::power:
      return "a power";
    case Category::angle:
      return "an angle";
    case Category::angrate:
      return "an angular rate";
    case Category::torque:
      return "a torque";
    case Category::density:
      return "a density";
    case Category::wavenum:
      return "a wave number";
    case Category::volts:
      return "a voltage";
    case Category::amps:
      return "a current";
    default:
      return "of an unknown kind";
  }
}

std::string usual_units(Base::Units units) {
  switch (Base::category_of(units)) {
    case Base::Category::unit:
      return "a number without units";
    case Base::Category::length:
      return "m, mm, cm, ft, in";
    case Base::Category::time:
      return "s, min, msec, h";
    case Base::Category::frequency:
    case Base::Category::angrate:
      return "Hz, rad/s, rpm";
    case Base::Category::angle:
      return "deg, rad";
    default:
      break;
  }
  return fmt::format("{}", fmt::join(Base::alternate(units), ", "));
}

}  // namespace Jobs
