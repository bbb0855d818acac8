#include "cli/man_page.h"

#include "cli/command_table.h"
#include "outputs/version.h"

namespace Cli {

namespace {

// Text as it is to be shown. Without the escapes, troff turns "-" into a hyphen that cannot be
// searched for, and takes a line that begins with a point for a request.
std::string plain(std::string_view text) {
  std::string out;
  for (const char letter : text) {
    if (letter == '\\') {
      out += "\\e";
    } else if (letter == '-') {
      out += "\\-";
    } else if ((letter == '.' || letter == '\'') && (out.empty() || out.back() == '\n')) {
      out += std::string("\\&") + letter;
    } else {
      out += letter;
    }
  }
  return out;
}

// Paragraphs that are separated by empty lines.
std::string paragraphs(std::string_view text) {
  std::string out;
  while (true) {
    const std::size_t end = text.find("\n\n");
    out += plain(text.substr(0, end)) + "\n";
    if (end == std::string_view::npos) return out;
    out += ".PP\n";
    text.remove_prefix(end + 2);
  }
}

std::string term(const std::string& name, std::string_view text) {
  return ".TP\n" + name + "\n" + plain(text) + "\n";
}

std::string bold(std::string_view text) { return "\\fB" + plain(text) + "\\fR"; }
std::string italic(std::string_view text) { return "\\fI" + plain(text) + "\\fR"; }

std::string option_name(const OptionText& option) {
  std::string name = option.letter.empty() ? "" : bold(option.letter) + ", ";
  name += bold(option.name);
  if (!option.value.empty()) name += " " + italic(option.value);
  return name;
}

std::string examples(const std::vector<Example>& texts) {
  std::string out = ".PP\n.nf\n.RS\n";
  for (const Example& example : texts) {
    if (!example.comment.empty()) out += "# " + plain(example.comment) + "\n";
    out += plain(example.line) + "\n";
  }
  return out + ".RE\n.fi\n";
}

std::string section(const CommandText& command) {
  std::string out = ".SS " + plain(usage_line(command)) + "\n" + paragraphs(command.description);
  for (const ArgumentText& argument : command.arguments) {
    out += term(italic(argument.name), argument.help);
  }
  for (const OptionText& option : command.options) out += term(option_name(option), option.help);
  return out + examples(command.examples);
}

}  // namespace

std::string man_page() {
  std::string out = ".TH KELPBOX 1 \"\" \"kelpbox " + Outputs::version() + "\" \"User Commands\"\n";
  out += ".SH NAME\nkelpbox \\- " + plain(short_purpose) + "\n";
  out += ".SH SYNOPSIS\n.B kelpbox\n" + italic("COMMAND") + " [" + italic("OPTION") + "]... [" +
         italic("ARGUMENT") + "]...\n";
  out += ".SH DESCRIPTION\n" + plain(purpose) + "\n" + examples(first_examples());
  out += ".SH COMMANDS\n";
  for (const CommandText& command : commands()) out += section(command);
  out += ".SH OPTIONS OF EVERY COMMAND\nThey may stand before or after the command.\n";
  for (const OptionText& option : global_options()) out += term(option_name(option), option.help);
  out += ".SH EXIT STATUS\n";
  for (const ExitText& text : exit_texts()) {
    out += term(bold(std::to_string(text.code)), text.meaning);
  }
  out += ".SH ENVIRONMENT\n";
  for (const VariableText& text : variable_texts()) out += term(bold(text.name), text.meaning);
  return out;
}

}  // namespace Cli
