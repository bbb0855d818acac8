// Records in CSV files: of jobs, and of `kelpbox analyse`.
#include <sys/stat.h>

#include "command_row.h"

namespace Testing {
namespace {

constexpr std::size_t million = 1'000'000;

using Contents = std::function<std::string()>;

std::string record_job(const std::string& file) {
  return "site = \"" TEST_ROOT R"(/../examples/flume.site"
[run]
repeat = "64 s"
[[sea]]
  [[sea.wave]]
  kind = "record"
  file = ")" +
         file + "\"\n";
}

Words job_of(const TempDir& folder, const std::string& file) {
  folder.write("job.toml", record_job(file));
  return {"check", "job.toml", "--quiet"};
}

Words analysis_of(const std::string& file) {
  return {"analyse", TEST_ROOT "/../examples/flume.site", file};
}

// The same file as the record of a job, and analysed.
void add_file(Rows& rows, const std::string& name, const Contents& contents,
              const std::string& of_job, const std::string& of_analysis) {
  rows.push_back(command(
      "Job" + name,
      [=](const TempDir& folder) {
        folder.write("r.csv", contents());
        return job_of(folder, "r.csv");
      },
      of_job));
  rows.push_back(command(
      "Analysis" + name,
      [=](const TempDir& folder) {
        folder.write("r.csv", contents());
        return analysis_of("r.csv");
      },
      of_analysis));
}

// A file that is none.
void add_other(Rows& rows, const std::string& name, const std::string& file,
               const std::string& of_job, const std::string& of_analysis) {
  rows.push_back(command(
      "Job" + name,
      [=](const TempDir& folder) {
        mkfifo(folder.file("fifo").c_str(), 0600);
        return job_of(folder, file);
      },
      of_job));
  rows.push_back(command(
      "Analysis" + name,
      [=](const TempDir& folder) {
        mkfifo(folder.file("fifo").c_str(), 0600);
        return analysis_of(file);
      },
      of_analysis));
}

std::string rows_of_waves(std::size_t count) {
  std::string text = "time [s],eta [mm]\n";
  text.reserve(count * 16);
  for (std::size_t i = 0; i < count; ++i) {
    text += std::to_string(i / 50) + "." + (i % 50 < 5 ? "0" : "") + std::to_string(2 * (i % 50)) +
            (i % 100 < 50 ? ",-10\n" : ",10\n");
  }
  return text;
}

// Heights of 1e308 mm, and times that rise.
std::string huge_heights() {
  std::string text = "time [s],eta [mm]\n";
  for (int i = 0; i < 40; ++i) text += std::to_string(i) + (i % 2 == 0 ? ",1e308\n" : ",-1e308\n");
  return text;
}

// What `kelpbox check` reports at the record of the job above.
std::string at_record(const std::string& message, const std::string& advice = {},
                      const std::string& file = "r.csv") {
  return "2: error: " + message + "\n --> job.toml:7:10\n  |\n7 |   file = \"" + file +
         "\"\n  |          " + std::string(file.size() + 2, '^') + advice +
         "\njob.toml: 1 error, nothing was built\n";
}

// A file that both refuse with the same message.
void refuse(Rows& rows, const std::string& name, const Contents& contents,
            const std::string& message) {
  add_file(rows, name, contents, at_record(message), "2: error: " + message + "\n");
}

void refuse_uneven(Rows& rows, const std::string& name, const Contents& contents,
                   const std::string& line) {
  add_file(rows, name, contents,
           at_record(line + ": the times of column `time` are not evenly spaced",
                     " give `rate`, or resample the record"),
           "2: error: " + line +
               ": the times are not evenly spaced; if they are only rounded, give the rate, as in "
               "--rate \"50 Hz\"\n");
}

const std::string no_numbers = "r.csv: there are no numbers";
const std::string too_long = "r.csv:1: a line of 50000000 characters: at most 16777216 can be read";

Rows all() {
  Rows rows;
  refuse(
      rows, "OfAMillionColumns",
      [] { return "a" + repeated(",a", million) + "\n1" + repeated(",1", million) + "\n"; },
      "r.csv:1: 1000001 columns: at most 100000 can be read");
  refuse(
      rows, "OfALineOfFiftyMegabytes", [] { return std::string(50 * million, '1'); }, too_long);
  refuse(
      rows, "OfAHeadOfFiftyMegabytes", [] { return std::string(50 * million, 'x') + "\n1\n2\n"; },
      too_long);
  refuse(
      rows, "OfFiftyMegabytesOfCommas", [] { return std::string(50 * million, ','); }, too_long);
  refuse(
      rows, "OfFiftyMegabytesOfQuotes", [] { return std::string(50 * million, '"'); }, too_long);
  refuse(
      rows, "OfACommentOfFiftyMegabytes",
      [] { return "#" + std::string(50 * million, 'x') + "\n"; }, no_numbers);
  refuse(
      rows, "OfFiftyMegabytesOfBlanks", [] { return std::string(50 * million, ' '); }, no_numbers);
  refuse(
      rows, "OfFiftyMegabytesOfEmptyLines", [] { return std::string(50 * million, '\n'); },
      no_numbers);
  refuse(
      rows, "OfZeroBytes", [] { return std::string(million, '\0'); }, no_numbers);
  refuse(
      rows, "OfNothing", [] { return std::string(); }, no_numbers);
  add_file(
      rows, "OfAMillionRows", [] { return rows_of_waves(million); },
      "0: ", "0: note: no wave trains: they need at least three probes\n");
  refuse(
      rows, "OfNumbersThatAreNone", [] { return std::string("time [s],eta [mm]\n0,nan\n1,inf\n"); },
      "r.csv:2: \"nan\" is not a finite number");
  add_file(
      rows, "OfNumbersOf1e308", huge_heights,
      "2: error: the drive signals cannot be built: Unmatched zero crossings\n --> job.toml\n  = a "
      "signal jumps from beyond one limit to beyond the other: a lower wave or a higher "
      "rate\njob.toml: 1 error, nothing was built\n",
      "2: error: r.csv: the record of eta is too large to compute with\n");
  refuse_uneven(
      rows, "OfTimesThatJumpBack",
      [] { return "time [s],eta [mm]\n" + repeated("0,1\n1,2\n", 20); }, "r.csv:4");
  refuse_uneven(
      rows, "OfTimesFarApart", [] { return std::string("time [s],eta [mm]\n-1e308,1\n1e308,2\n"); },
      "r.csv:3");
  add_file(
      rows, "OfTimesThatStandStill",
      [] { return "time [s],eta [mm]\n" + repeated("1,1\n1,2\n", 20); },
      at_record("the times of column `time` do not increase", " give `rate`"),
      "2: error: r.csv: the times do not increase\n");
  add_other(rows, "FromAFifo", "fifo",
            at_record("the file `fifo` is not a regular file", "", "fifo"),
            "2: error: fifo is not a regular file\n");
  add_other(rows, "FromADevice", "/dev/zero",
            at_record("the file `/dev/zero` is not a regular file", "", "/dev/zero"),
            "2: error: /dev/zero is not a regular file\n");
  add_other(rows, "FromAFolder", ".", at_record("the file `.` is a folder, not a file", "", "."),
            "2: error: . is a folder, not a file\n");
  return rows;
}
const Rows rows = all();
INSTANTIATE_TEST_SUITE_P(Record, HazardTest, testing::ValuesIn(rows), row_name);

}  // namespace
}  // namespace Testing
