#include "cli/message_pattern.h"

#include <cctype>

namespace Cli {
namespace {

bool is_digit(char c) { return c >= '0' && c <= '9'; }
bool is_letter(char c) { return std::isalpha(static_cast<unsigned char>(c)) != 0; }

// The length of the number at the beginning: digits with a sign, a point and an exponent, or "nan"
// and "inf". 0 if there is none.
std::size_t number_length(std::string_view text) {
  const std::size_t sign = !text.empty() && (text[0] == '-' || text[0] == '+') ? 1 : 0;
  for (const std::string_view word : {"nan", "inf"}) {
    if (text.substr(sign, 3) == word) return sign + 3;
  }
  std::size_t at = sign;
  while (at < text.size() && is_digit(text[at])) ++at;
  if (at == sign) return 0;
  if (at + 1 < text.size() && text[at] == '.' && is_digit(text[at + 1])) {
    for (++at; at < text.size() && is_digit(text[at]);) ++at;
  }
  if (at < text.size() && text[at] == 'e') {
    std::size_t exponent = at + 1;
    if (exponent < text.size() && (text[exponent] == '-' || text[exponent] == '+')) ++exponent;
    if (exponent < text.size() && is_digit(text[exponent])) {
      for (at = exponent; at < text.size() && is_digit(text[at]);) ++at;
    }
  }
  return at;
}

// Whether a number can begin here: "1" in "section[1]", but not in "m2s".
bool begins_word(std::string_view text, std::size_t at) {
  return at == 0 || (!is_letter(text[at - 1]) && !is_digit(text[at - 1]) && text[at - 1] != '_');
}

bool ends_word(std::string_view text, std::size_t at) {
  return at >= text.size() || (!is_letter(text[at]) && !is_digit(text[at]) && text[at] != '_');
}

// The length of a part that varies: "...", "<name>", or a capital N or R alone. 0 for none.
std::size_t placeholder_length(std::string_view text, std::size_t at) {
  const std::string_view rest = text.substr(at);
  if (rest.starts_with("...")) return 3;
  if (rest[0] == '<') {
    const std::size_t end = rest.find('>');
    return end == rest.npos || end > 40 ? 0 : end + 1;
  }
  const bool letter = rest[0] == 'N' || rest[0] == 'R';
  return letter && begins_word(text, at) && ends_word(text, at + 1) ? 1 : 0;
}

}  // namespace

MessagePattern::MessagePattern(std::string_view written) {
  bool blank = false;
  for (std::size_t at = 0; at < written.size();) {
    const char c = written[at];
    if (c == ' ' || c == '\n') {
      blank = !tokens_.empty();
      ++at;
      continue;
    }
    if (blank) tokens_.push_back({Token::Kind::character, ' '});
    blank = false;
    const std::string_view rest = written.substr(at);
    const std::size_t number = begins_word(written, at) ? number_length(rest) : 0;
    const std::size_t quote = c == '"' ? rest.find('"', 1) : rest.npos;
    if (const std::size_t length = placeholder_length(written, at); length > 0) {
      add_anything();
      at += length;
    } else if (number > 0 && is_digit(rest[number - 1])) {
      tokens_.push_back({Token::Kind::number});
      at += number;
    } else if (quote != rest.npos && quote <= 40) {
      tokens_.push_back({Token::Kind::character, '"'});
      add_anything();
      tokens_.push_back({Token::Kind::character, '"'});
      at += quote + 1;
    } else {
      tokens_.push_back({Token::Kind::character, normal_form(written.substr(at, 1))[0]});
      ++literal_;
      ++at;
    }
  }
}

void MessagePattern::add_anything() {
  if (tokens_.empty() || tokens_.back().kind != Token::Kind::anything) {
    tokens_.push_back({Token::Kind::anything});
  }
}

std::optional<std::size_t> MessagePattern::fit(std::string_view message) const {
  const std::string text = normal_form(message);
  std::size_t token = 0;
  std::size_t at = 0;
  // Where the last `anything` was met, and how much it takes at present.
  std::size_t last_any = tokens_.size();
  std::size_t any_end = 0;
  while (at < text.size() || token < tokens_.size()) {
    if (token < tokens_.size()) {
      const Token& expected = tokens_[token];
      if (expected.kind == Token::Kind::anything) {
        last_any = token++;
        any_end = at;
        continue;
      }
      const std::string_view rest = std::string_view(text).substr(at);
      const std::size_t taken = expected.kind == Token::Kind::number
                                    ? number_length(rest)
                                    : (!rest.empty() && rest[0] == expected.character ? 1 : 0);
      if (taken > 0) {
        at += taken;
        ++token;
        continue;
      }
    }
    if (last_any == tokens_.size() || any_end >= text.size()) return std::nullopt;
    token = last_any + 1;
    at = ++any_end;
  }
  return literal_;
}

std::string normal_form(std::string_view text) {
  std::string result;
  for (const char c : text) {
    if (c == ' ' || c == '\n' || c == '\t' || c == '\r') {
      if (!result.empty() && result.back() != ' ') result += ' ';
    } else {
      result += static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
    }
  }
  while (!result.empty() && result.back() == ' ') result.pop_back();
  return result;
}

std::set<std::string> words_of(std::string_view text) {
  std::set<std::string> words;
  std::string word;
  for (const char c : std::string(text) + " ") {
    if (is_letter(c) || c == '_') {
      word += static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
      continue;
    }
    if (word.size() >= 3) words.insert(word);
    word.clear();
  }
  return words;
}

}  // namespace Cli
