#include "fuzz/script_reading.h"

#include <cctype>
#include <cmath>
#include <filesystem>

namespace Fuzz {
namespace {

bool is_digit(char c) { return std::isdigit(static_cast<unsigned char>(c)); }

bool is_name_letter(char c) {
  return std::isalnum(static_cast<unsigned char>(c)) || c == '_' || c == '.';
}

// Whether an array of the script could have hundreds of elements or more. Huge bounds are refused
// at once, so they are left in.
bool has_large_arrays(const std::string& input) {
  for (std::size_t open = input.find('['); open != std::string::npos;
       open = input.find('[', open + 1)) {
    const std::string bounds = input.substr(open, input.find(']', open) - open);
    std::size_t digits = 0;
    for (const char c : bounds + ' ') {
      if (is_digit(c)) {
        ++digits;
        continue;
      }
      if ((digits > 2 && digits < 7) || c == '*' || c == 'x' || c == 'X' || c == '#') return true;
      digits = 0;
    }
  }
  return false;
}

}  // namespace

bool unsuitable_script(const std::string& input) {
  return input.find('\0') != std::string::npos || has_large_arrays(input);
}

std::string write_files(const std::string& input, const Testing::TempDir& dir) {
  for (const auto& left : std::filesystem::directory_iterator(dir.path())) {
    std::filesystem::remove(left);
  }
  const std::string main_name = "main.site";
  std::string name = main_name;
  std::string contents;
  std::istringstream lines(input);
  const std::string marker = "--- file ";
  for (std::string line; std::getline(lines, line);) {
    if (line.rfind(marker, 0) == 0) {
      dir.write(name, contents);
      contents.clear();
      name = "_";
      for (const char c : line.substr(marker.size())) {
        if (is_name_letter(c)) name += c;
      }
      // Never "." or "..".
      if (name.size() > 1 && name[1] != '.') name.erase(0, 1);
    } else {
      contents += line + '\n';
    }
  }
  dir.write(name, contents);
  return dir.file(main_name);
}

bool has_moderate_reals(const Script::List& list) {
  for (const Script::Variable& item : list.items()) {
    if (item.type() == Script::VarType::object) {
      if (!has_moderate_reals(item.as_object().list())) return false;
    } else if (item.type() == Script::VarType::array) {
      for (const Script::List& element : item.as_array().lists()) {
        if (!has_moderate_reals(element)) return false;
      }
    } else if (Script::is_real_field(item.type())) {
      if (!(std::abs(item.real_field()) < 1e30)) return false;
    }
  }
  return true;
}

bool ends(const std::string& text, const std::string& end) {
  return text.size() >= end.size() && text.compare(text.size() - end.size(), end.size(), end) == 0;
}

}  // namespace Fuzz
