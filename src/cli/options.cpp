#include "cli/options.h"

#include <CLI/CLI.hpp>
#include <algorithm>
#include <charconv>
#include <optional>
#include <thread>

#include "jobs/nearest.h"

namespace Cli {

namespace {

constexpr unsigned most_workers = 256;  // each needs two file descriptors

std::string in_quotes(std::string_view text) { return "`" + std::string(text) + "`"; }

std::string did_you_mean(const std::string& name, const std::vector<std::string>& known) {
  const std::optional<std::string> near = Jobs::nearest(name, known);
  return near ? ": did you mean " + in_quotes(*near) + "?" : "";
}

// The first word that is no option. All global options are switches, so no value is taken for it.
std::size_t find_command_word(const std::vector<std::string>& words) {
  for (std::size_t i = 0; i < words.size(); ++i) {
    if (words[i].empty() || words[i][0] != '-' || words[i] == "-") return i;
  }
  return words.size();
}

void add_options(CLI::App& app, const std::vector<OptionText>& texts, CommandLine& line) {
  for (const OptionText& text : texts) {
    std::string names(text.name);
    if (!text.letter.empty()) names.append(",").append(text.letter);
    const std::string name(text.name);
    const auto keep = [&line, name](const CLI::results_t& values) {
      line.options[name] = values;
      return true;
    };
    CLI::Option* option = app.add_option(names, CLI::callback_t(keep));
    if (text.value.empty()) {
      option->expected(0)->multi_option_policy(CLI::MultiOptionPolicy::TakeLast);
      option->disable_flag_override();
    } else if (text.repeats) {
      option->expected(1)->allow_extra_args(false);
      option->multi_option_policy(CLI::MultiOptionPolicy::TakeAll);
    } else {
      option->expected(1)->multi_option_policy(CLI::MultiOptionPolicy::TakeLast);
    }
  }
}

// "--out: 1 required TEXT missing" and "json was given a disallowed flag override" begin with the
// option.
[[noreturn]] void refuse(const CLI::ParseError& error, const CommandText* command) {
  const std::string what = error.what();
  const std::string name = what.substr(0, what.find_first_of(": "));
  std::vector<OptionText> known = global_options();
  if (command) known.insert(known.end(), command->options.begin(), command->options.end());
  for (const OptionText& option : known) {
    if (name != option.name && "--" + name != option.name) continue;
    if (option.value.empty()) throw BadUsage{in_quotes(option.name) + " takes no value", command};
    throw BadUsage{in_quotes(name) + " needs a value: " + std::string(option.value), command};
  }
  throw BadUsage{what, command};
}

[[noreturn]] void refuse_option(const std::string& word, const CommandText* command) {
  const std::string name = word.substr(0, word.find('='));
  std::vector<std::string> known;
  for (const OptionText& option : global_options()) known.emplace_back(option.name);
  if (command) {
    for (const OptionText& option : command->options) known.emplace_back(option.name);
  }
  const std::string owner =
      command ? " of " + in_quotes("kelpbox " + std::string(command->name)) : "";
  throw BadUsage{"unknown option " + in_quotes(name) + owner + did_you_mean(name, known), command};
}

// CLI11 takes the next word for an option whose value is an empty word, as in "--out=".
void refuse_missing_values(const std::vector<std::string>& words, const CommandText& command) {
  for (std::size_t i = 0; i < words.size() && words[i] != "--"; ++i) {
    for (const OptionText& option : command.options) {
      const bool named =
          words[i] == option.name || (!option.letter.empty() && words[i] == option.letter);
      const bool empty = named && i + 1 < words.size() && words[i + 1].empty();
      if (option.value.empty() || (!empty && words[i] != std::string(option.name) + "=")) continue;
      throw BadUsage{in_quotes(option.name) + " needs a value: " + std::string(option.value),
                     &command};
    }
  }
}

// "-j storm.toml": the word after the option is an argument.
void refuse_swallowed_job(const CommandLine& line) {
  if (!line.has("--jobs") || !line.arguments.empty()) return;
  worker_count(line.last("--jobs"), line.command);
}

void require_arguments(const CommandLine& line) {
  const auto& texts = line.command->arguments;
  const std::string name = in_quotes("kelpbox " + std::string(line.command->name));
  const auto needed = static_cast<std::size_t>(std::count_if(
      texts.begin(), texts.end(), [](const ArgumentText& text) { return text.required; }));
  refuse_swallowed_job(line);
  if (line.arguments.size() < needed) {
    throw BadUsage{name + " needs " + std::string(texts[line.arguments.size()].name), line.command};
  }
  const bool reads_jobs = !texts.empty() && texts.front().name == "JOB";
  if (reads_jobs && std::count(line.arguments.begin(), line.arguments.end(), "-") > 1) {
    throw BadUsage{"`-` is given twice, but standard input can be read only once", line.command};
  }
  const bool many = !texts.empty() && texts.back().repeats;
  if (line.arguments.size() > texts.size() && !many) {
    throw BadUsage{name + " takes no further argument " + in_quotes(line.arguments[texts.size()]),
                   line.command};
  }
}

}  // namespace

std::vector<std::string> CommandLine::all(std::string_view option) const {
  const auto found = options.find(option);
  return found == options.end() ? std::vector<std::string>() : found->second;
}

std::string CommandLine::last(std::string_view option, const std::string& fallback) const {
  const auto found = options.find(option);
  return found == options.end() || found->second.empty() ? fallback : found->second.back();
}

std::string CommandLine::argument(std::size_t index) const {
  return index < arguments.size() ? arguments[index] : std::string();
}

CommandLine read_command_line(const std::vector<std::string>& words) {
  CommandLine line;
  std::vector<std::string> rest = words;
  const std::size_t at = find_command_word(words);
  if (at < words.size()) {
    line.command = find_command(words[at]);
    if (!line.command) {
      throw BadUsage{"unknown command " + in_quotes(words[at]) +
                     did_you_mean(words[at], command_names())};
    }
    rest.erase(rest.begin() + static_cast<std::ptrdiff_t>(at));
  }

  if (line.command) refuse_missing_values(rest, *line.command);

  CLI::App app;
  app.set_help_flag();
  app.allow_extras();
  add_options(app, global_options(), line);
  if (line.command) add_options(app, line.command->options, line);
  app.add_option("arguments", line.arguments);
  try {
    std::reverse(rest.begin(), rest.end());  // as the parser takes them
    app.parse(rest);
  } catch (const CLI::ParseError& error) {
    refuse(error, line.command);
  }
  for (const std::string& word : app.remaining()) {
    if (word != "--") refuse_option(word, line.command);
  }
  if (line.command && !line.has("--help") && !line.has("--version")) require_arguments(line);
  return line;
}

unsigned worker_count(const std::string& text, const CommandText* command) {
  const unsigned processors = std::max(1U, std::thread::hardware_concurrency());
  if (text == "auto") return processors;
  unsigned number = 0;
  const char* end = text.data() + text.size();
  const std::from_chars_result read = std::from_chars(text.data(), end, number);
  if (read.ec != std::errc() || read.ptr != end || number > most_workers) {
    throw BadUsage{in_quotes("--jobs") + " is a number of workers up to " +
                       std::to_string(most_workers) + ", or auto, not " + in_quotes(text),
                   command};
  }
  return number == 0 ? processors : number;
}

}  // namespace Cli
