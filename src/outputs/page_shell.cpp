#include "outputs/page_shell.h"

#include <string_view>

namespace Outputs {
namespace {

std::string escaped(std::string_view text) {
  std::string html;
  for (const char each : text) {
    switch (each) {
      case '&':
        html += "&amp;";
        break;
      case '<':
        html += "&lt;";
        break;
      case '>':
        html += "&gt;";
        break;
      case '"':
        html += "&quot;";
        break;
      case '\'':
        html += "&#39;";
        break;
      default:
        html += each;
    }
  }
  return html;
}

// Everything before the mark. `rest` then begins after it.
std::string_view take_until(std::string_view& rest, std::string_view mark) {
  const std::size_t at = rest.find(mark);
  const std::string_view before = rest.substr(0, at);
  rest.remove_prefix(at == std::string_view::npos ? rest.size() : at + mark.size());
  return before;
}

}  // namespace

std::string json_for_html(const std::string& json) {
  // U+2028 and U+2029 end a line for some readers of scripts.
  constexpr std::string_view line_ends = "\xE2\x80";
  std::string html;
  html.reserve(json.size() + json.size() / 64);
  for (std::size_t i = 0; i < json.size(); ++i) {
    const bool line_end = json.compare(i, 2, line_ends) == 0 && i + 2 < json.size() &&
                          (json[i + 2] == '\xA8' || json[i + 2] == '\xA9');
    if (json[i] == '<') {
      html += "\\u003c";
    } else if (line_end) {
      html += json[i + 2] == '\xA8' ? "\\u2028" : "\\u2029";
      i += 2;
    } else {
      html += json[i];
    }
  }
  return html;
}

std::string filled_shell(const std::string& title, const std::string& json) {
  std::string_view rest = embedded_report().front().text;
  std::string page;
  page.reserve(rest.size() + json.size() + json.size() / 32);
  page += take_until(rest, "{{title}}");
  page += escaped(title);
  page += take_until(rest, "{{data}}");
  page += json_for_html(json);
  page += rest;
  return page;
}

}  // namespace Outputs
