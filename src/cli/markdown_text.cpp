// The inline marks of Markdown: code spans, emphasis, links, and quotes.
#include <algorithm>
#include <cstddef>

#include "cli/markdown.h"

namespace Cli {
namespace {

std::size_t run_of(std::string_view text, std::size_t at, char c) {
  std::size_t end = at;
  while (end < text.size() && text[end] == c) ++end;
  return end - at;
}

// Where the code span that opens at `at` ends, or `at` if nothing closes it.
std::size_t code_end(std::string_view text, std::size_t at) {
  const std::size_t ticks = run_of(text, at, '`');
  for (std::size_t i = at + ticks; i < text.size();) {
    if (text[i] != '`') {
      ++i;
      continue;
    }
    const std::size_t closing = run_of(text, i, '`');
    if (closing == ticks) return i + ticks;
    i += closing;
  }
  return at;
}

// The contents of a code span. One blank beside the marks is not part of them.
std::string code_text(std::string_view span) {
  const std::size_t ticks = run_of(span, 0, '`');
  std::string_view inner = span.substr(ticks, span.size() - 2 * ticks);
  if (inner.size() > 2 && inner.front() == ' ' && inner.back() == ' ') {
    inner = inner.substr(1, inner.size() - 2);
  }
  return std::string(inner);
}

bool is_blank_or_end(std::string_view text, std::size_t at) {
  return at >= text.size() || text[at] == ' ';
}

// A star between blanks is a product.
bool is_emphasis(std::string_view text, std::size_t at) {
  const bool after_blank = at == 0 || text[at - 1] == ' ';
  return !after_blank || !is_blank_or_end(text, at + run_of(text, at, '*'));
}

bool opens_quote(std::string_view text, std::size_t at) {
  const bool after_gap = at == 0 || std::string_view(" ([\"").find(text[at - 1]) != text.npos;
  return after_gap && !is_blank_or_end(text, at + 1);
}

// Where the quote that opens at `at` ends, or `at` if nothing closes it.
std::size_t quote_end(std::string_view text, std::size_t at) {
  std::size_t depth = 0;
  for (std::size_t i = at; i < text.size(); ++i) {
    if (text[i] != '"') continue;
    if (opens_quote(text, i) && (i == at || text[i - 1] != '"')) {
      ++depth;
    } else if (--depth == 0) {
      return i + 1;
    }
  }
  return at;
}

struct Parts {
  std::vector<std::string> quoted;
  std::string rest;
};

Parts parts_of(std::string_view text) {
  Parts parts;
  for (std::size_t at = 0; at < text.size();) {
    std::size_t end = at;
    if (text[at] == '`') {
      end = code_end(text, at);
      if (end > at) parts.quoted.push_back(code_text(text.substr(at, end - at)));
    } else if (text[at] == '"' && opens_quote(text, at)) {
      end = quote_end(text, at);
      if (end > at) parts.quoted.push_back(plain_text(text.substr(at + 1, end - at - 2)));
    }
    if (end == at) parts.rest += text[end++];
    at = end;
  }
  return parts;
}

}  // namespace

std::string plain_text(std::string_view markdown) {
  std::string text;
  for (std::size_t at = 0; at < markdown.size();) {
    const char c = markdown[at];
    if (c == '`') {
      if (const std::size_t end = code_end(markdown, at); end > at) {
        text += code_text(markdown.substr(at, end - at));
        at = end;
        continue;
      }
    } else if (c == '*' && is_emphasis(markdown, at)) {
      at += run_of(markdown, at, '*');
      continue;
    } else if (c == '[') {
      const std::size_t middle = markdown.find("](", at);
      const std::size_t close = markdown.find(']', at);
      const std::size_t end = middle == markdown.npos ? middle : markdown.find(')', middle);
      if (middle != markdown.npos && close == middle && end != markdown.npos) {
        text += plain_text(markdown.substr(at + 1, middle - at - 1));
        at = end + 1;
        continue;
      }
    }
    text += c;
    ++at;
  }
  return text;
}

std::vector<std::string> quoted_parts(std::string_view markdown) {
  return parts_of(markdown).quoted;
}

std::string unquoted_text(std::string_view markdown) { return plain_text(parts_of(markdown).rest); }

}  // namespace Cli
