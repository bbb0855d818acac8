#include "cli/command_table.h"
#include "cli/program_run.h"

using Testing::Ran;
using Testing::run_program;
using Testing::Words;

namespace {

bool has(const std::string& text, const std::string& part) {
  return text.find(part) != std::string::npos;
}

// The command line is refused with this message, and nothing is on standard output.
void expect_refused(const Words& words, const std::string& message) {
  const Ran ran = run_program(words);
  EXPECT_EQ(ran.code, 2) << message;
  EXPECT_EQ(ran.out, "");
  EXPECT_EQ(ran.err, "error: " + message + "\n");
}

}  // namespace

TEST(CommandLine, ShowsAShortHelpWithAnExampleWithoutArguments) {
  const Ran ran = run_program({});
  EXPECT_EQ(ran.code, 0);
  EXPECT_EQ(ran.err, "");
  EXPECT_TRUE(has(ran.out, "kelpbox run "));
  EXPECT_LT(std::count(ran.out.begin(), ran.out.end(), '\n'), 15);
}

TEST(CommandLine, ShowsTheFullHelpWithEveryCommand) {
  const Ran ran = run_program({"--help"});
  EXPECT_EQ(ran.code, 0);
  for (const std::string& name : Cli::command_names()) {
    EXPECT_TRUE(has(ran.out, "\n  " + name + " ")) << name;
  }
  EXPECT_EQ(ran.out, run_program({"-h"}).out);
  EXPECT_EQ(ran.out, run_program({"help"}).out);
}

TEST(CommandLine, ShowsTheHelpOfEachCommandWithExamplesFirstAndEveryOption) {
  for (const Cli::CommandText& command : Cli::commands()) {
    const std::string name(command.name);
    const Ran ran = run_program({name, "--help"});
    EXPECT_EQ(ran.code, 0) << name;
    EXPECT_EQ(ran.err, "") << name;
    EXPECT_EQ(ran.out.rfind("Examples:\n", 0), 0U) << name;
    EXPECT_TRUE(has(ran.out, "kelpbox " + name)) << name;
    for (const Cli::OptionText& option : command.options) {
      EXPECT_TRUE(has(ran.out, std::string(option.name))) << name << ' ' << option.name;
    }
    EXPECT_EQ(ran.out, run_program({"help", name}).out) << name;
    EXPECT_EQ(ran.out, run_program({"-h", name}).out) << name;
  }
}

TEST(CommandLine, KeepsItsHelpWithinEightyColumns) {
  for (const Cli::CommandText& command : Cli::commands()) {
    std::istringstream lines(run_program({"help", std::string(command.name)}).out);
    for (std::string line; std::getline(lines, line);) {
      if (line.find("  kelpbox ") == 0) continue;  // examples can be long
      EXPECT_LE(line.size(), 80U) << line;
    }
  }
}

// An option that the parser did not know would be reported instead of the missing value.
TEST(CommandLine, KnowsEveryOptionOfTheTable) {
  for (const Cli::CommandText& command : Cli::commands()) {
    for (const Cli::OptionText& option : command.options) {
      if (option.value.empty()) {
        const Ran ran = run_program({std::string(command.name), "-h", std::string(option.name)});
        EXPECT_EQ(ran.code, 0) << command.name << ' ' << option.name;
        continue;
      }
      expect_refused({std::string(command.name), std::string(option.name)},
                     "`" + std::string(option.name) +
                         "` needs a value: " + std::string(option.value) + " (kelpbox help " +
                         std::string(command.name) + ")");
    }
  }
}

TEST(CommandLine, TakesGlobalOptionsBeforeAndAfterTheCommand) {
  const std::string after = run_program({"units", "1 m", "mm", "--json"}).out;
  EXPECT_EQ(after.front(), '{');
  EXPECT_EQ(run_program({"--json", "units", "1 m", "mm"}).out, after);
  EXPECT_EQ(run_program({"units", "--json", "1 m", "mm"}).out, after);
}

TEST(CommandLine, TakesNegativeNumbersAsArguments) {
  EXPECT_EQ(run_program({"units", "-3 m", "mm"}).code, 0);
  EXPECT_EQ(run_program({"units", "--", "-.5 m", "mm"}).code, 0);
}

TEST(CommandLine, RefusesWordsThatNameNoCommand) {
  EXPECT_EQ(run_program({"-"}).err, "error: unknown command `-` (kelpbox help)\n");
  EXPECT_EQ(run_program({""}).err, "error: unknown command `` (kelpbox help)\n");
  EXPECT_EQ(run_program({"--json=3"}).code, 2);
}

TEST(CommandLine, RunsTheCommandsThatReadNoJob) {
  EXPECT_NE(run_program({"formulas"}).out.find("\nFunctions\n"), std::string::npos);
  EXPECT_NE(run_program({"seas"}).out.find("jonswap"), std::string::npos);
  const Ran ran = run_program({"analyse", TEST_ROOT "/../examples/flume.site",
                               TEST_ROOT "/../examples/records/reflecting_beach.csv"});
  EXPECT_EQ(ran.code, 0);
  EXPECT_NE(ran.out.find("reflection coefficient                   0.120"), std::string::npos);
}

TEST(CommandLine, NamesTheNearestCommand) {
  expect_refused({"rum"}, "unknown command `rum`: did you mean `run`? (kelpbox help)");
  expect_refused({"help", "sites"}, "unknown command `sites`: did you mean `site`? (kelpbox help)");
  expect_refused({"xyzzy"}, "unknown command `xyzzy` (kelpbox help)");
}

TEST(CommandLine, NamesTheNearestOption) {
  expect_refused({"run", "a.toml", "--ouput", "b"},
                 "unknown option `--ouput` of `kelpbox run`: did you mean `--out`? "
                 "(kelpbox help run)");
  expect_refused({"run", "a.toml", "--strickt"},
                 "unknown option `--strickt` of `kelpbox run`: did you mean `--strict`? "
                 "(kelpbox help run)");
  expect_refused({"--jsn"}, "unknown option `--jsn`: did you mean `--json`? (kelpbox help)");
  expect_refused({"seas", "--out=x"},
                 "unknown option `--out` of `kelpbox seas` (kelpbox help seas)");
}

TEST(CommandLine, DoesNotCompleteAbbreviatedOptions) {
  EXPECT_EQ(run_program({"run", "a.toml", "--stric"}).code, 2);
  EXPECT_EQ(run_program({"ru", "a.toml"}).code, 2);
}

TEST(CommandLine, RefusesAValueForASwitch) {
  expect_refused({"run", "a.toml", "--strict=yes"}, "`--strict` takes no value (kelpbox help run)");
}

TEST(CommandLine, RefusesMissingAndSurplusArguments) {
  expect_refused({"run"}, "`kelpbox run` needs JOB (kelpbox help run)");
  expect_refused({"analyse", "a.site"}, "`kelpbox analyse` needs RECORDS (kelpbox help analyse)");
  expect_refused({"site", "a.site", "b.site"},
                 "`kelpbox site` takes no further argument `b.site` (kelpbox help site)");
}

TEST(CommandLine, RefusesANumberOfWorkersThatIsNone) {
  for (const std::string text : {"nan", "-1", "2.5", "2x", " ", "99999", "0x2"}) {
    expect_refused({"run", "a.toml", "--jobs=" + text},
                   "`--jobs` is a number of workers up to 256, or auto, not `" + text +
                       "` (kelpbox help run)");
  }
}

TEST(CommandLine, RefusesAnEmptyValue) {
  for (const Words& words : {Words{"run", "a.toml", "--out", ""}, Words{"run", "--out=", "a.toml"},
                             Words{"run", "a.toml", "-o", ""}}) {
    expect_refused(words, "`--out` needs a value: DIR (kelpbox help run)");
  }
  expect_refused({"new", "regular", "--to", ""}, "`--to` needs a value: FILE (kelpbox help new)");
}

TEST(CommandLine, RefusesAJobAsTheNumberOfWorkers) {
  expect_refused({"check", "-j", "a.toml"},
                 "`--jobs` is a number of workers up to 256, or auto, not `a.toml` "
                 "(kelpbox help check)");
}

TEST(CommandLine, RefusesStandardInputTwice) {
  expect_refused({"check", "-", "-"},
                 "`-` is given twice, but standard input can be read only once "
                 "(kelpbox help check)");
}

TEST(CommandLine, ShowsTheVersionOfTheProject) {
  EXPECT_EQ(run_program({"--version"}).out, "kelpbox " PROJECT_VERSION "\n");
  EXPECT_EQ(run_program({"run", "--version"}).out, "kelpbox " PROJECT_VERSION "\n");
  const std::string all = run_program({"--version", "--verbose"}).out;
  for (const std::string library :
       {"fftw-3.", "Boost", "NetCDF", "CLI11", "toml++", "nlohmann-json", "fmt"}) {
    EXPECT_TRUE(has(all, library)) << library;
  }
}
