#include <iostream>
#include <iterator>
#include <sstream>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "cli/commands.h"
#include "cli/error_line.h"
#include "cli/explanations.h"
#include "cli/tool_json.h"
#include "cli/wrapped_text.h"

namespace Cli {
namespace {

constexpr std::size_t width = 92;

void show(const Explanation& explanation, Console& console) {
  console.out << wrapped(explanation.message, "", "", width) << '\n';
  for (const std::string& line : explanation.lines) {
    console.out << wrapped(line, "  ", line.starts_with("- ") ? "    " : "  ", width);
  }
  if (!explanation.lines.empty()) console.out << '\n';
  console.out << "  " << explanation.page << ", " << explanation.section << '\n';
}

void show_all(const std::vector<Explanation>& explanations, Console& console) {
  for (const Explanation& explanation : explanations) {
    if (&explanation != &explanations.front()) console.out << '\n';
    show(explanation, console);
  }
}

// Of several lines, such as a stack trace, the first that a page has. Otherwise the first line. The
// text may be a whole log.
Answer explain_lines(const std::string& text) {
  constexpr std::size_t most_lines = 200;
  constexpr std::size_t most_characters = 4000;
  std::istringstream lines(text);
  lines.exceptions(std::ios_base::badbit);  // set when a line does not fit into memory
  Answer first;
  std::size_t count = 0;
  for (std::string line; count < most_lines && std::getline(lines, line);) {
    if (line.find_first_not_of(" \t\r") == std::string::npos) continue;
    Answer answer = explain_message(std::string_view(line).substr(0, most_characters));
    if (!answer.fitting.empty()) return answer;
    if (count++ == 0) first = std::move(answer);
  }
  return first;
}

int not_found(const Answer& answer, Console& console) {
  const std::string fault = "no page has a message like this";
  if (console.json && !answer.similar.empty()) {
    console.out << json_of(answer, fault);
    return Exit::bad_input;
  }
  error_line(console, fault,
             answer.similar.empty() ? "give the message as it was printed, in single quotes" : "");
  if (!answer.similar.empty()) {
    console.err << "  The most similar ones:\n";
    for (const Explanation& similar : answer.similar) {
      console.err << wrapped(similar.message, "  - ", "    ", width);
    }
  }
  return Exit::bad_input;
}

}  // namespace

int explain(const std::vector<std::string>& message, Console& console) {
  std::string text;
  for (const std::string& word : message) text += (text.empty() ? "" : " ") + word;
  if (text == "-") text.assign(std::istreambuf_iterator<char>(std::cin), {});
  if (text.find_first_not_of(" \t\r\n") == std::string::npos) {
    error_line(console, "there is no message to explain",
               "give it in single quotes, or \"-\" to read it from the standard input");
    return Exit::bad_input;
  }
  Answer answer = explain_lines(text);
  if (answer.fitting.empty() && !answer.likely) return not_found(answer, console);
  if (answer.fitting.empty()) {
    note_line(console, "no page has exactly this message; this one is the most similar");
    answer.similar.resize(1);
  }
  if (console.json) {
    console.out << json_of(answer);
  } else {
    show_all(answer.fitting.empty() ? answer.similar : answer.fitting, console);
  }
  return Exit::good;
}

}  // namespace Cli
