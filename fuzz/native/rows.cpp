#include "fuzz/native/rows.h"

#include <map>
#include <optional>

#include "fuzz/native/script.h"

namespace Fuzz {
namespace {

// The bytes of a text as UTF-16, one unit for each pair of bytes that may be half a character, and
// one for each other byte.
std::u16string units_of(const std::string& text) {
  std::u16string units;
  for (std::size_t i = 0; i < text.size(); ++i) {
    const auto one = static_cast<unsigned char>(text[i]);
    if (one >= 0xD8 && one <= 0xDF && i + 1 < text.size()) {
      units += static_cast<char16_t>(one << 8 | static_cast<unsigned char>(text[++i]));
    } else {
      units += static_cast<char16_t>(one);
    }
  }
  return units;
}

}  // namespace

const Row* find_row(std::string_view name) {
  static const std::map<std::string_view, const Row*> found = [] {
    std::map<std::string_view, const Row*> all;
    for (const Row& row : rows()) all.emplace(row.name, &row);
    return all;
  }();
  const auto row = found.find(name);
  return row == found.end() ? nullptr : row->second;
}

std::string java_name(std::string_view exported) {
  std::string name;
  for (std::size_t i = 0; i < exported.size(); ++i) {
    name += exported[i];
    if (exported.substr(i, 2) == "_1") ++i;
  }
  return name;
}

jstring text_for(ArrayHost& host, const Given& given) {
  return given.null ? nullptr : host.text(given.text);
}

jbyteArray bytes_for(ArrayHost& host, const Given& given) {
  return given.null ? nullptr : host.bytes(given.text);
}

jdoubleArray reals_for(ArrayHost& host, const Given& given) {
  if (given.null) return nullptr;
  std::vector<double> values;
  for (const std::string& one : given.list) values.push_back(real_of(one));
  return host.doubles(std::move(values));
}

jintArray integers_for(ArrayHost& host, const Given& given) {
  if (given.null) return nullptr;
  std::vector<jint> values;
  for (const std::string& one : given.list) values.push_back(static_cast<jint>(integer_of(one)));
  return host.ints(std::move(values));
}

jobjectArray texts_for(ArrayHost& host, const Given& given) {
  if (given.null) return nullptr;
  std::vector<std::optional<std::u16string>> values;
  for (const std::string& one : given.list) {
    if (one == "null") {
      values.emplace_back();
    } else {
      values.emplace_back(units_of(unescaped(one)));
    }
  }
  return host.texts(values);
}

}  // namespace Fuzz
