// Job files.
#include <sys/stat.h>

#include "command_row.h"

namespace Testing {
namespace {

constexpr std::size_t million = 1'000'000;

// `kelpbox check` of a whole file.
Hazard job_file(const std::string& name, const std::function<std::string()>& text,
                const std::string& expected) {
  return command(
      name,
      [=](const TempDir& folder) {
        folder.write("job.toml", text());
        return Words{"check", "job.toml", "--quiet"};
      },
      expected);
}

const std::string known_keys =
    "known keys: title, site, tune, run, sea, drive, point, field, outputs, set";

std::string with_unknown_keys(int count) {
  std::string keys;
  for (int i = 0; i < count; ++i) keys += "k" + std::to_string(i) + " = 1\n";
  return keys + flume_job();
}

// The first hundred of many unknown keys.
std::string unknown_keys(int count) {
  std::string text = "2: ";
  for (int i = 0; i < 100; ++i) {
    const std::string key = "k" + std::to_string(i);
    const std::string line = std::to_string(i + 1);
    const std::string margin(line.size(), ' ');
    text += "error: unknown key `" + key + "` in the job\n" + margin + "--> job.toml:" + line +
            ":1\n" + margin + " |\n" + line + " | " + key + " = 1\n" + margin + " | " +
            std::string(key.size(), '^') + " " + known_keys + "\n";
  }
  return text + "and " + std::to_string(count - 100) +
         (count == 101 ? " more error" : " more errors") + "\njob.toml: " + std::to_string(count) +
         " errors, nothing was built\n";
}

const Rows files = {
    job_file(
        "SeventeenMegabytes", [] { return std::string(17 * million, '#'); },
        "2: error: job.toml: larger than 16 MiB\njob.toml: 1 error, nothing was built\n"),
    job_file(
        "SixteenMegabytesOfComments",
        [] { return flume_job(repeated("# a comment\n", 1'380'000)); }, "0: "),
    job_file(
        "ALineOfTenMegabytes",
        [] { return "title = \"" + std::string(10 * million, 'x') + "\"\n" + flume_job(); }, "0: "),
    job_file(
        "AKeyOfTenMegabytes",
        [] { return std::string(10 * million, 'x') + " = 1\n" + flume_job(); },
        error_in_long_line("unknown key `" + std::string(500, 'x'), "job.toml",
                           std::string(500, 'x'), 1, known_keys)),
    job_file(
        "AMillionOpenBrackets", [] { return "title = " + std::string(million, '['); },
        "2: error: tables and arrays are nested too deeply\n --> job.toml:1:109\n  |\n1 | "
        "...[[[[[[[[[[[[[[[[[[[[[[[[[[[[[[[[[[[[[[[[[[[[[[[[[[[[[[[[[[[[[[[[[[[[[[[[[[[[[[[[[[[[[[["
        "[[[[[[[[[[[[[...\n  |                                  ^ at most 100 levels\njob.toml: 1 "
        "error, nothing was built\n"),
    job_file(
        "AMillionDots", [] { return "a" + repeated(".a", million) + " = 1"; },
        "2: error: tables and arrays are nested too deeply\n --> job.toml:1:202\n  |\n1 | "
        "....a.a.a.a.a.a.a.a.a.a.a.a.a.a.a.a.a.a.a.a.a.a.a.a.a.a.a.a.a.a.a.a.a.a.a.a.a.a.a.a.a.a.a."
        "a.a.a.a.a.a.a...\n  |                                  ^ at most 100 levels\njob.toml: 1 "
        "error, nothing was built\n"),
    job_file(
        "AMillionValues", [] { return "title = [" + repeated("1,", million) + "]"; },
        "2: error: the file has too many values\n --> job.toml:1:200007\n  |\n1 | "
        "...,1,1,1,1,1,1,1,1,1,1,1,1,1,1,1,1,1,1,1,1,1,1,1,1,1,1,1,1,1,1,1,1,1,1,1,1,1,1,1,1,1,1,1,"
        "1,1,1,1,1,1,1...\n  |                                  ^ at most 100000; measured records "
        "belong in a CSV file\njob.toml: 1 error, nothing was built\n"),
    job_file(
        "FiftyThousandUnknownKeys", [] { return with_unknown_keys(50'000); }, unknown_keys(50'000)),
    job_file(
        "AHundredAndOneUnknownKeys", [] { return with_unknown_keys(101); }, unknown_keys(101)),
    job_file(
        "ZeroBytes", [] { return std::string(million, '\0'); },
        "2: error: job.toml: not a text file\njob.toml: 1 error, nothing was built\n"),
    job_file(
        "ANumberOfTenMegabytes", [] { return "title = " + std::string(10 * million, '9'); },
        error_in_long_line("`" + std::string(500, '9'), "job.toml",
                           "title = " + std::string(500, '9'), 9,
                           "write \"" + shortened(std::string(393, '9'), 393))),
    job_lines(
        "TwentyThousandWaves",
        [] {
          return repeated("  [[sea.wave]]\n  kind = \"single\"\n  f = \"0.5 Hz\"\n  a = \"1 mm\"\n",
                          20'000);
        },
        "2: error: the file has too many values\n     --> job.toml:80001:3\n      |\n80001 |   "
        "[[sea.wave]]\n      |   ^ at most 100000; measured records belong in a CSV "
        "file\njob.toml: 1 error, nothing was built\n"),
    job_lines(
        "TenThousandSeas",
        [] {
          return repeated(
              "[[sea]]\n  [[sea.wave]]\n  kind = \"single\"\n  f = \"0.5 Hz\"\n  a = \"1 mm\"\n",
              10'000);
        },
        "0: "),
    job_lines(
        "TenThousandPoints",
        [] { return repeated("[[point]]\nx = \"9 m\"\ny = \"0.4 m\"\n", 10'000); }, "0: "),
    command(
        "AFifo",
        [](const TempDir& folder) {
          mkfifo(folder.file("job.toml").c_str(), 0600);
          return Words{"check", "job.toml"};
        },
        "2: error: job.toml: not a regular file\njob.toml: 1 error, nothing was built\n"),
    command(
        "ADevice",
        [](const TempDir&) {
          return Words{"check", "/dev/zero"};
        },
        "2: error: /dev/zero: not a regular file\n/dev/zero: 1 error, nothing was built\n"),
    command(
        "AFolder",
        [](const TempDir&) {
          return Words{"check", "."};
        },
        "2: error: .: Is a directory\n.: 1 error, nothing was built\n"),
    command(
        "FiveThousandOverrides",
        [](const TempDir& folder) {
          folder.write("job.toml", flume_job());
          Words words{"check", "job.toml", "--quiet"};
          for (int i = 0; i < 5'000; ++i) {
            words.insert(words.end(),
                         {"--set", "run.repeat=\"" + std::to_string(64 + i % 2) + " s\""});
          }
          return words;
        },
        "0: "),
    command(
        "AnOverrideOfAHundredKilobytes",
        [](const TempDir& folder) {
          folder.write("job.toml", flume_job());
          return Words{"check", "job.toml", "--set", "title=" + std::string(100'000, 'x')};
        },
        "0: "),
};
INSTANTIATE_TEST_SUITE_P(JobFile, HazardTest, testing::ValuesIn(files), row_name);

}  // namespace
}  // namespace Testing
