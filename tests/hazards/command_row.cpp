#include "command_row.h"

namespace Testing {
namespace {

constexpr std::size_t longest_message = 400;
constexpr std::size_t widest_line = 100;

}  // namespace

Hazard command(const std::string& name, const Command& words, const std::string& expected) {
  return {name, in_folder([=](const TempDir& folder) {
            const Ran ran = run_program(words(folder), {folder.path()});
            return std::to_string(ran.code) + ": " + ran.err;
          }),
          expected};
}

std::string flume_job(const std::string& more) {
  return "site = \"" TEST_ROOT R"(/../examples/flume.site"
[run]
repeat = "64 s"
[[sea]]
  [[sea.wave]]
  kind = "single"
  f = "0.5 Hz"
  a = "20 mm"
)" + more;
}

Hazard job_value(const std::string& name, const std::string& key, const std::string& value,
                 const std::string& expected) {
  return command(
      name,
      [=](const TempDir& folder) {
        folder.write("job.toml", flume_job());
        return Words{"check", "job.toml", "--quiet", "--set", key + "=" + value};
      },
      expected);
}

Hazard job_lines(const std::string& name, const std::function<std::string()>& lines,
                 const std::string& expected) {
  return command(
      name,
      [=](const TempDir& folder) {
        folder.write("job.toml", flume_job(lines()));
        return Words{"check", "job.toml", "--quiet"};
      },
      expected);
}

std::string shortened(const std::string& text, std::size_t longest) {
  return text.substr(0, longest) + "...";
}

std::string error_in_long_line(const std::string& message, const std::string& file,
                               const std::string& line, std::size_t column,
                               const std::string& label) {
  return "2: error: " + shortened(message, longest_message) + "\n --> " + file +
         ":1:" + std::to_string(column) + "\n  |\n1 | " + shortened(line, widest_line) + "\n  | " +
         std::string(column - 1, ' ') + std::string(widest_line + 1 - column, '^') + " " + label +
         "\njob.toml: 1 error, nothing was built\n";
}

}  // namespace Testing
