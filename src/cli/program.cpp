#include "cli/program.h"

#include <fcntl.h>
#include <signal.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstring>

#include "cli/commands.h"
#include "cli/completion.h"
#include "cli/failure_report.h"
#include "cli/fd_stream.h"
#include "cli/help_pages.h"
#include "cli/man_page.h"
#include "cli/options.h"
#include "cli/version_text.h"

namespace Cli {

namespace {

JobOptions job_options(const CommandLine& line) {
  JobOptions options;
  options.jobs = line.arguments;
  options.set = line.all("--set");
  options.out = line.last("--out");
  options.workers = worker_count(line.last("--jobs", "1"), line.command);
  options.strict = line.has("--strict");
  return options;
}

AnalyseOptions analyse_options(const CommandLine& line) {
  AnalyseOptions options;
  options.site = line.arguments.front();
  options.records.assign(line.arguments.begin() + 1, line.arguments.end());
  options.start = line.last("--start");
  options.stop = line.last("--stop");
  options.rate = line.last("--rate");
  options.units = line.last("--units");
  options.angle = line.last("--angle", options.angle);
  options.probes = line.all("--probe");
  options.columns = line.all("--column");
  return options;
}

int help(const std::string& name, Console& console) {
  if (name.empty()) {
    console.out << full_help();
  } else if (const CommandText* command = find_command(name)) {
    console.out << command_help(*command);
  } else {
    read_command_line({name});  // throws BadUsage with the nearest command
  }
  return Exit::good;
}

int run_command(const CommandLine& line, Console& console) {
  const std::string name(line.command->name);
  if (name == "run") return run(job_options(line), console);
  if (name == "check") return check(job_options(line), console);
  if (name == "report") return report_pages(line.arguments, console);
  if (name == "site") return site({line.argument(0), line.all("--set")}, console);
  if (name == "analyse") return analyse(analyse_options(line), console);
  if (name == "seas") return seas({line.argument(0)}, console);
  if (name == "new") {
    return make_new({line.argument(0), line.argument(1), line.last("--to"), line.has("--force")},
                    console);
  }
  if (name == "units") return units(line.argument(0), line.argument(1), console);
  if (name == "formulas") return formulas(console);
  if (name == "explain") return explain(line.arguments, console);
  if (name == "help") return help(line.argument(0), console);
  if (name == "completion") {
    console.out << completion_script(line.argument(0));
  } else {
    console.out << man_page();
  }
  return Exit::good;
}

int run_line(const CommandLine& line, Console& console) {
  if (line.has("--version")) {
    console.out << version_text(console.verbose);
  } else if (line.has("--help")) {
    console.out << (line.command ? command_help(*line.command) : full_help());
  } else if (line.command) {
    return run_command(line, console);
  } else {
    console.out << short_help();
  }
  return Exit::good;
}

int run_words(const std::vector<std::string>& words, Console& console) {
  try {
    const CommandLine line = read_command_line(words);
    console.json = line.has("--json");
    console.quiet = line.has("--quiet");
    console.verbose = line.has("--verbose");
    if (line.has("--no-color")) console.out_colour = console.err_colour = false;
    return run_line(line, console);
  } catch (...) {
    // The line may be too bad to be read as a whole.
    const auto given = [&](const char* word) {
      return std::count(words.begin(), words.end(), word);
    };
    if (given("--json") > 0) console.json = true;
    if (given("--no-color") > 0) console.out_colour = console.err_colour = false;
    return report_current("", console);
  }
}

// A standard stream that was closed is opened so that it cannot be used. Otherwise the next file
// that is opened would take its number, and get what is written to the stream.
void occupy_standard_descriptors() {
  for (const int fd : {STDIN_FILENO, STDOUT_FILENO, STDERR_FILENO}) {
    if (fcntl(fd, F_GETFD) != -1) continue;
    const int opened = open("/dev/null", fd == STDIN_FILENO ? O_WRONLY : O_RDONLY);
    static_cast<void>(opened);
  }
}

// Ends as a program does that never heard of a closed pipe.
void end_by_closed_pipe() {
  signal(SIGPIPE, SIG_DFL);
  raise(SIGPIPE);
}

}  // namespace

int run_program(const std::vector<std::string>& words) {
  occupy_standard_descriptors();
  // A write to a closed pipe then fails, and running jobs can be ended before the process ends.
  signal(SIGPIPE, SIG_IGN);
  // A write beyond the limit of a file's size then fails too, instead of ending the process.
  signal(SIGXFSZ, SIG_IGN);
  FdStream out(STDOUT_FILENO);
  FdStream err(STDERR_FILENO);
  Console console{out, err, shows_colour(STDOUT_FILENO), shows_colour(STDERR_FILENO),
                  is_live(STDERR_FILENO)};
  // A JSON document escapes control characters itself.
  out.make_safe(console.json, console.out_colour);
  err.make_safe(console.json, console.err_colour);
  console.width = columns_of(STDOUT_FILENO, console.width);
  int code = run_words(words, console);
  const int failure = out.close();
  if (failure == EPIPE) {
    err.close();
    end_by_closed_pipe();
  } else if (failure != 0) {
    console.json = false;  // there is nowhere to write a document to
    code = report({Exit::cannot_write,
                   std::string("cannot write to standard output: ") + std::strerror(failure),
                   {}},
                  console);
  }
  err.close();
  return code;
}

}  // namespace Cli
