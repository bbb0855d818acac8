#include "cli/help_pages.h"

#include <algorithm>

#include "cli/wrapped_text.h"

namespace Cli {

namespace {

constexpr std::size_t help_width = 80;
constexpr std::size_t option_column = 24;

std::string paragraph(std::string_view text) {
  return wrapped(std::string(text), "", "", help_width);
}

// Paragraphs that are separated by empty lines.
std::string paragraphs(std::string_view text) {
  const std::size_t end = text.find("\n\n");
  std::string lines = paragraph(text.substr(0, end));
  if (end != std::string_view::npos) lines += "\n" + paragraphs(text.substr(end + 2));
  return lines;
}

// A term in a column of `width`, and its explanation beside it or, after a longer term, below it.
std::string term_line(std::string_view term, std::string_view text, std::size_t width) {
  const std::string indent(width, ' ');
  std::string first = "  " + std::string(term);
  if (first.size() + 2 > width) {
    return first + "\n" + wrapped(std::string(text), indent, indent, help_width);
  }
  first.resize(width, ' ');
  return wrapped(std::string(text), first, indent, help_width);
}

// Comments stand beside the lines if all fit there, else above them.
std::string shown(const std::vector<Example>& examples) {
  std::size_t widest = 0;
  for (const Example& example : examples) widest = std::max(widest, example.line.size());
  const bool beside = std::all_of(examples.begin(), examples.end(), [&](const Example& example) {
    return widest + 6 + example.comment.size() <= help_width;
  });
  std::string lines;
  for (const Example& example : examples) {
    std::string line(example.line);
    if (beside && !example.comment.empty()) {
      line.resize(widest + 2, ' ');
      line += "# " + std::string(example.comment);
    } else if (!example.comment.empty()) {
      lines.append("  # ").append(example.comment).append("\n");
    }
    lines += "  " + line + "\n";
  }
  return lines;
}

std::string shown(const std::vector<OptionText>& options) {
  std::string lines;
  for (const OptionText& option : options) {
    lines += term_line(option_term(option), option.help, option_column);
  }
  return lines;
}

}  // namespace

std::string option_term(const OptionText& option) {
  std::string term = option.letter.empty() ? "    " : std::string(option.letter) + ", ";
  term += option.name;
  if (!option.value.empty()) term += " " + std::string(option.value);
  return term;
}

std::string short_help() {
  std::string names;
  for (const CommandText& command : commands()) {
    if (command.name == "man" || command.name == "completion") continue;
    names += (names.empty() ? "" : ", ") + std::string(command.name);
  }
  return paragraph(purpose) + "\n" + shown(first_examples()) + "\n" +
         wrapped("Commands: " + names + ".", "", "  ", help_width) +
         "\"kelpbox help\" lists them all, \"kelpbox help run\" describes one.\n";
}

std::string full_help() {
  std::string page = paragraph(purpose) + "\nUsage: kelpbox COMMAND [OPTION]... [ARGUMENT]...\n";
  page += "\nA first use:\n" + shown(first_examples());
  page += "\nCommands:\n";
  for (const CommandText& command : commands()) {
    page += term_line(command.name, command.summary, 16);
  }
  page += "\nOptions of every command, before or after its name:\n" + shown(global_options());
  page += "\nExit codes:\n";
  for (const ExitText& text : exit_texts()) {
    page += term_line(std::to_string(text.code), text.meaning, 8);
  }
  page += "\nEnvironment:\n";
  for (const VariableText& text : variable_texts()) {
    page += term_line(text.name, text.meaning, 14);
  }
  return page + "\n\"kelpbox help COMMAND\" describes a command.\n";
}

std::string command_help(const CommandText& text) {
  std::string page = "Examples:\n" + shown(text.examples) + "\nUsage: " + usage_line(text) +
                     "\n\n" + paragraphs(text.description);
  if (!text.arguments.empty()) page += "\nArguments:\n";
  for (const ArgumentText& argument : text.arguments) {
    page += term_line(argument.name, argument.help, 16);
  }
  if (!text.options.empty()) page += "\nOptions:\n" + shown(text.options);
  return page + "\nOptions of every command:\n" + shown(global_options());
}

}  // namespace Cli
