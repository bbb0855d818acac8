// Which stream has what: results on standard output, everything else on standard error.
#include <signal.h>

#include <nlohmann/json.hpp>

#include "cli/program_run.h"
#include "cli/sample_jobs.h"

using Testing::Output;
using Testing::Ran;
using Testing::run_on_terminal;
using Testing::run_program;
using Testing::Setting;

namespace {

const std::string escape = "\033[";

bool has_colour(const Ran& ran) {
  return ran.out.find(escape) != std::string::npos || ran.err.find(escape) != std::string::npos;
}

class Streams : public testing::Test {
 protected:
  Streams() {
    folder_.write("good.toml", Testing::quick_job());
    folder_.write("bad.toml", "site = 5\n");
    setting_.folder = folder_.path();
  }

  Testing::TempDir folder_;
  Setting setting_;
};

}  // namespace

TEST_F(Streams, UseColourOnATerminal) {
  EXPECT_TRUE(has_colour(run_on_terminal({"check", "bad.toml"}, setting_)));
}

TEST_F(Streams, UseNoColourInAPipe) {
  EXPECT_FALSE(has_colour(run_program({"check", "bad.toml"}, setting_)));
}

TEST_F(Streams, UseNoColourWhereItIsRefused) {
  EXPECT_FALSE(has_colour(run_on_terminal({"check", "bad.toml", "--no-color"}, setting_)));
  setting_.environment = {{"NO_COLOR", "1"}};
  EXPECT_FALSE(has_colour(run_on_terminal({"check", "bad.toml"}, setting_)));
  setting_.environment = {{"NO_COLOR", ""}};
  EXPECT_TRUE(has_colour(run_on_terminal({"check", "bad.toml"}, setting_)));
  setting_.environment = {{"TERM", "dumb"}};
  EXPECT_FALSE(has_colour(run_on_terminal({"check", "bad.toml"}, setting_)));
}

TEST_F(Streams, UseNoColourForABadCommandLineThatRefusesIt) {
  EXPECT_TRUE(has_colour(run_on_terminal({"xyzzy"}, setting_)));
  EXPECT_FALSE(has_colour(run_on_terminal({"xyzzy", "--no-color"}, setting_)));
}

TEST_F(Streams, MayLackTheStandardInput) {
  const std::string program = "'" + Testing::program_path() + "' ";
  const Ran ran = Testing::run_command({"sh", "-c", program + "units '1 m' mm <&-"}, setting_);
  EXPECT_EQ(ran.out, "1000 mm\n");
  EXPECT_EQ(ran.code, 0);
  const Ran none = Testing::run_command({"sh", "-c", program + "check - <&-"}, setting_);
  EXPECT_EQ(none.code, 2);
  EXPECT_NE(none.err.find("standard input"), std::string::npos);
}

TEST_F(Streams, HaveErrorsOnStandardErrorAlone) {
  const Ran ran = run_program({"check", "bad.toml"}, setting_);
  EXPECT_EQ(ran.code, 2);
  EXPECT_EQ(ran.out, "");
  EXPECT_NE(ran.err.find("--> bad.toml:1:8"), std::string::npos) << ran.err;
}

TEST_F(Streams, HaveNothingOfTheLibrary) {
  const Ran ran = run_program({"check", "good.toml"}, setting_);
  EXPECT_EQ(ran.code, 0) << ran.err;
  EXPECT_EQ(ran.err, "");
  EXPECT_EQ(ran.out.find("Opened file"), std::string::npos);
}

TEST_F(Streams, HaveNothingButErrorsWithQuiet) {
  const Ran good = run_program({"check", "good.toml", "--quiet"}, setting_);
  EXPECT_EQ(good.code, 0);
  EXPECT_EQ(good.out + good.err, "");
  EXPECT_NE(run_program({"check", "bad.toml", "--quiet"}, setting_).err, "");
}

TEST_F(Streams, HaveOneDocumentWithJson) {
  const Ran ran = run_program({"check", "bad.toml", "good.toml", "nix.toml", "--json"}, setting_);
  EXPECT_EQ(ran.code, 2);
  EXPECT_EQ(ran.err, "");
  const auto jobs = nlohmann::json::parse(ran.out).at("jobs");
  ASSERT_EQ(jobs.size(), 3U);
  EXPECT_EQ(jobs[0].at("job"), "bad.toml");
  EXPECT_EQ(jobs[0].at("exit_code"), 2);
  // Faults without a place, such as a missing table, come first.
  const auto faults = jobs[0].at("error").at("diagnostics");
  EXPECT_EQ(faults.front().at("file"), "bad.toml");
  EXPECT_FALSE(faults.front().contains("line"));
  EXPECT_EQ(faults.back().at("file"), "bad.toml");
  EXPECT_EQ(faults.back().at("line"), 1);
  EXPECT_EQ(faults.back().at("column"), 8);
  EXPECT_EQ(jobs[1].at("job"), "good.toml");
  EXPECT_EQ(jobs[1].at("exit_code"), 0);
  EXPECT_TRUE(jobs[1].at("summary").is_object());
  EXPECT_FALSE(jobs[1].contains("error"));
  EXPECT_EQ(jobs[2].at("error").at("code"), 2);
}

TEST_F(Streams, HaveBadUsageAsJsonToo) {
  for (const Testing::Words& words :
       {Testing::Words{"--json", "xyzzy"}, Testing::Words{"run", "--json"},
        Testing::Words{"run", "a.toml", "--nix", "--json"},
        Testing::Words{"site", "nix", "--json"}}) {
    const Ran ran = run_program(words, setting_);
    EXPECT_EQ(ran.code, 2);
    EXPECT_EQ(ran.err, "");
    const auto error = nlohmann::json::parse(ran.out).at("error");
    EXPECT_EQ(error.at("code"), 2);
    EXPECT_NE(error.at("message"), "");
  }
}

TEST_F(Streams, EndTheProgramQuietlyWhenNobodyReads) {
  setting_.output = Output::closed_pipe;
  for (const Testing::Words& words :
       {Testing::Words{"--help"}, Testing::Words{"site", Testing::example("basin.site")},
        Testing::Words{"check", "good.toml"}}) {
    const Ran ran = run_program(words, setting_);
    EXPECT_EQ(ran.code, 128 + SIGPIPE) << words[0];
    EXPECT_EQ(ran.err, "");
  }
}

TEST_F(Streams, LeaveFinishedResultsWhenNobodyReads) {
  setting_.output = Output::closed_pipe;
  EXPECT_EQ(run_program({"run", "good.toml"}, setting_).code, 128 + SIGPIPE);
  EXPECT_TRUE(std::filesystem::is_directory(folder_.file("good.out")));
}

TEST_F(Streams, EndFurtherJobsWhenNobodyReads) {
  folder_.write("slow.toml", Testing::slow_job());
  setting_.output = Output::closed_pipe;
  EXPECT_EQ(run_program({"run", "good.toml", "slow.toml"}, setting_).code, 128 + SIGPIPE);
  EXPECT_TRUE(std::filesystem::is_directory(folder_.file("good.out")));
  const auto all = std::filesystem::directory_iterator(folder_.path());
  EXPECT_EQ(std::distance(all, std::filesystem::directory_iterator()), 4);
}

TEST_F(Streams, ReportAClosedStandardOutput) {
  const std::string program = "exec '" + Testing::program_path() + "' ";
  for (const std::string words : {"check good.toml", "run good.toml", "--help"}) {
    const Ran ran = Testing::run_command({"sh", "-c", program + words + " >&-"}, setting_);
    EXPECT_EQ(ran.code, 3) << words;
    EXPECT_EQ(ran.err, "error: cannot write to standard output: Bad file descriptor\n") << words;
  }
}

TEST_F(Streams, ReportAFullDisk) {
  setting_.output = Output::full_disk;
  for (const Testing::Words& words :
       {Testing::Words{"--help"}, Testing::Words{"check", "good.toml"},
        Testing::Words{"check", "good.toml", "--json"}}) {
    const Ran ran = run_program(words, setting_);
    EXPECT_EQ(ran.code, 3) << words[0];
    EXPECT_EQ(ran.err, "error: cannot write to standard output: No space left on device\n");
  }
}

TEST_F(Streams, HaveNoEscapeSequencesOfNames) {
  const std::string name = "bad\033]0;title\007.toml";
  for (const Testing::Words& words :
       {Testing::Words{"check", name}, Testing::Words{"explain", name}, Testing::Words{"new", name},
        Testing::Words{"site", name}}) {
    const Ran ran = run_on_terminal(words, setting_);
    EXPECT_EQ(ran.code, 2) << words[0];
    EXPECT_EQ(ran.out.find("\033]"), std::string::npos) << words[0];
    EXPECT_EQ(ran.out.find('\007'), std::string::npos) << words[0];
  }
  folder_.write("run" + name, Testing::quick_job());
  const Ran ran = run_program({"run", "run" + name, "--out", name}, setting_);
  EXPECT_EQ(ran.code, 0) << ran.err;
  EXPECT_NE(ran.out.find("Written: bad ]0;title .toml\n"), std::string::npos) << ran.out;
  EXPECT_EQ(ran.out.find('\033'), std::string::npos);
}

TEST_F(Streams, ReportALimitOfFileSizes) {
  const std::string run = "ulimit -f 8; exec '" + Testing::program_path() + "' run good.toml";
  const Ran ran = Testing::run_command({"sh", "-c", run}, setting_);
  EXPECT_EQ(ran.code, 3);
  EXPECT_EQ(ran.err.rfind("error: cannot write ", 0), 0U) << ran.err;
  EXPECT_NE(ran.err.find("File too large"), std::string::npos) << ran.err;
  EXPECT_FALSE(std::filesystem::exists(folder_.file("good.out")));
}
