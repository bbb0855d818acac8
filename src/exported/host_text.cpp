#include "exported/host_text.h"

#include <algorithm>
#include <cstddef>

#include "base/utf8.h"
#include "exported/host_array.h"
#include "exported/safe_frame.h"

namespace Kelpbox {
namespace {

constexpr char32_t replacement = 0xFFFD;
constexpr char32_t first_high = 0xD800;  // the first half of a pair of surrogates
constexpr char32_t first_low = 0xDC00;   // the second half
constexpr char32_t after_low = 0xE000;
constexpr char32_t first_pair = 0x10000;

char continued(char32_t bits) { return static_cast<char>(0x80 | (bits & 0x3F)); }

void add_utf8(std::string& out, char32_t character) {
  if (character < 0x80) {
    out += static_cast<char>(character);
  } else if (character < 0x800) {
    out += static_cast<char>(0xC0 | character >> 6);
    out += continued(character);
  } else if (character < first_pair) {
    out += static_cast<char>(0xE0 | character >> 12);
    out += continued(character >> 6);
    out += continued(character);
  } else {
    out += static_cast<char>(0xF0 | character >> 18);
    out += continued(character >> 12);
    out += continued(character >> 6);
    out += continued(character);
  }
}

// The character of four bytes of UTF-8.
char32_t four_bytes(std::string_view text) {
  char32_t character = static_cast<unsigned char>(text[0]) & 0x07;
  for (std::size_t i = 1; i < 4; ++i) {
    character = character << 6 | (static_cast<unsigned char>(text[i]) & 0x3F);
  }
  return character;
}

// Most texts. Their modified UTF-8 is the same.
bool is_ascii_without_nul(std::string_view text) {
  return std::all_of(text.begin(), text.end(),
                     [](unsigned char one) { return one != 0 && one < 0x80; });
}

bool is_half(char16_t unit, char32_t first) { return unit >= first && unit < first + 0x400; }

}  // namespace

std::string modified_utf8(std::string_view text) {
  if (is_ascii_without_nul(text)) return std::string(text);
  std::string out;
  out.reserve(text.size());
  for (std::size_t at = 0; at < text.size();) {
    const std::size_t length = Base::utf8_length(text, at);
    if (length == 0) {
      add_utf8(out, replacement);
      ++at;
      continue;
    }
    if (text[at] == '\0') {
      out += "\xC0\x80";
    } else if (length == 4) {
      const char32_t above = four_bytes(text.substr(at)) - first_pair;
      add_utf8(out, first_high + (above >> 10));
      add_utf8(out, first_low + (above & 0x3FF));
    } else {
      out += text.substr(at, length);
    }
    at += length;
  }
  return out;
}

std::string utf8_of(const std::u16string& text) {
  std::string out;
  out.reserve(text.size());
  for (std::size_t i = 0; i < text.size(); ++i) {
    const char16_t unit = text[i];
    if (unit < first_high || unit >= after_low) {
      add_utf8(out, unit);
    } else if (is_half(unit, first_high) && i + 1 < text.size() &&
               is_half(text[i + 1], first_low)) {
      add_utf8(out, first_pair + ((unit - first_high) << 10) + (text[i + 1] - first_low));
      ++i;
    } else {
      add_utf8(out, replacement);
    }
  }
  return out;
}

jstring host_text(JNIEnv* env, std::string_view text) {
  return not_pending(env->NewStringUTF(modified_utf8(text).c_str()));
}

std::string text_of(JNIEnv* env, jstring text) {
  std::u16string units(static_cast<std::size_t>(env->GetStringLength(text)), u'\0');
  static_assert(sizeof(char16_t) == sizeof(jchar));
  env->GetStringRegion(text, 0, static_cast<jsize>(units.size()),
                       reinterpret_cast<jchar*>(units.data()));
  return utf8_of(units);
}

std::string text_of(JNIEnv* env, jbyteArray bytes) {
  const std::vector<jbyte> values = values_of<jbyte>(env, bytes);
  return {values.begin(), values.end()};
}

jobjectArray host_texts(JNIEnv* env, const std::vector<std::string>& texts) {
  const jobjectArray array = host_objects(env, texts.size(), "java/lang/String");
  for (std::size_t i = 0; i < texts.size(); ++i) {
    set_object(env, array, i, host_text(env, texts[i]));
  }
  return array;
}

}  // namespace Kelpbox
