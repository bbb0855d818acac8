// The completion scripts and the man page, used by the programs that they are for.
#include "cli/command_table.h"
#include "cli/program_run.h"

using Testing::Ran;
using Testing::run_command;
using Testing::run_program;

namespace {

class Completion : public testing::Test {
 protected:
  Completion() {
    setting_.folder = folder_.path();
    folder_.write("kelpbox.bash", run_program({"completion", "bash"}).out);
    for (const std::string name : {"storm.toml", "a b.toml", "x.site", "x.csv", "other.txt"}) {
      folder_.write(name, "");
    }
    std::filesystem::create_directory(folder_.file("folder"));
  }

  // What bash offers for the last word, sorted, separated by "|".
  std::string offered(const std::string& words) {
    const std::string script =
        "source ./kelpbox.bash; COMP_WORDS=(kelpbox " + words +
        "); COMP_CWORD=$((${#COMP_WORDS[@]} - 1)); _kelpbox; IFS='|'; echo \"${COMPREPLY[*]}\"";
    const Ran ran = run_command({"bash", "-uc", script}, setting_);
    EXPECT_EQ(ran.err, "") << words;
    return ran.out;
  }

  Testing::TempDir folder_;
  Testing::Setting setting_;
};

bool installed(const std::string& program) {
  return run_command({"sh", "-c", "command -v " + program}).code == 0;
}

}  // namespace

TEST_F(Completion, OffersCommands) {
  EXPECT_EQ(offered("ru"), "run\n");
  EXPECT_EQ(offered("--json ru"), "run\n");
  EXPECT_EQ(offered("help form"), "formulas\n");
  std::string names = "|" + offered("''");
  for (const std::string& name : Cli::command_names()) {
    names.replace(names.find('\n'), 1, "|\n");
    EXPECT_NE(names.find("|" + name + "|"), std::string::npos) << name;
  }
}

TEST_F(Completion, OffersOptionsOfTheCommand) {
  EXPECT_EQ(offered("run --s"), "--set|--strict\n");
  EXPECT_EQ(offered("check --o"), "\n");
  EXPECT_EQ(offered("check --j"), "--jobs|--json\n");
  EXPECT_EQ(offered("--v"), "--verbose|--version\n");
}

TEST_F(Completion, OffersFilesOfTheRightKind) {
  EXPECT_EQ(offered("run ''"), "a b.toml|folder|storm.toml\n");
  EXPECT_EQ(offered("run storm.toml a"), "a b.toml\n");
  EXPECT_EQ(offered("site ''"), "folder|x.site\n");
  EXPECT_EQ(offered("analyse x"), "x.csv|x.site\n");
  EXPECT_EQ(offered("run --out ''"), "folder\n");
  EXPECT_EQ(offered("run -o ''"), "folder\n");
  // As bash splits "--out=fo" and "--out=".
  EXPECT_EQ(offered("run --out = fo"), "folder\n");
  EXPECT_EQ(offered("run --out ="), "folder\n");
  EXPECT_EQ(offered("run --set s"), "\n");
  EXPECT_EQ(offered("new --to ''"),
            "a b.toml|folder|kelpbox.bash|other.txt|storm.toml|x.csv|x.site\n");
  EXPECT_EQ(offered("completion ''"), "bash|zsh\n");
  EXPECT_EQ(offered("seas jon"), "jonswap\n");
  EXPECT_EQ(offered("new jon"), "jonswap\n");
  EXPECT_EQ(offered("new site fl"), "flume\n");
}

TEST_F(Completion, IsRegisteredWithBash) {
  const Ran ran =
      run_command({"bash", "-uc", "source ./kelpbox.bash; complete -p kelpbox"}, setting_);
  EXPECT_EQ(ran.out, "complete -o filenames -F _kelpbox kelpbox\n");
}

TEST_F(Completion, IsAScriptOfZsh) {
  const Ran script = run_program({"completion", "zsh"});
  EXPECT_EQ(script.code, 0);
  EXPECT_EQ(script.out.rfind("#compdef kelpbox\n", 0), 0U);
  for (const Cli::CommandText& command : Cli::commands()) {
    EXPECT_NE(script.out.find("\n_kelpbox_" + std::string(command.name) + "() {"),
              std::string::npos);
    for (const Cli::OptionText& option : command.options) {
      EXPECT_NE(script.out.find("'" + std::string(option.repeats ? "*" : "") +
                                std::string(option.name) + "["),
                std::string::npos)
          << option.name;
    }
  }
  if (!installed("zsh")) GTEST_SKIP() << "zsh is not installed";
  folder_.write("_kelpbox", script.out);
  const Ran ran = run_command({"zsh", "-n", "_kelpbox"}, setting_);
  EXPECT_EQ(ran.code, 0);
  EXPECT_EQ(ran.err, "");
}

TEST_F(Completion, RefusesOtherShells) {
  const Ran ran = run_program({"completion", "fish"});
  EXPECT_EQ(ran.code, 2);
  EXPECT_EQ(ran.out, "");
}

TEST_F(Completion, ManPageIsFormattedWithoutWarnings) {
  const Ran page = run_program({"man"});
  EXPECT_EQ(page.code, 0);
  EXPECT_EQ(page.out, run_program({"man"}).out);
  folder_.write("kelpbox.1", page.out);
  const Ran shown =
      run_command({"groff", "-man", "-Tascii", "-ww", "-P-bcou", "kelpbox.1"}, setting_);
  EXPECT_EQ(shown.code, 0);
  EXPECT_EQ(shown.err, "");
  for (const Cli::CommandText& command : Cli::commands()) {
    EXPECT_NE(shown.out.find("kelpbox " + std::string(command.name) + " [OPTION]"),
              std::string::npos)
        << command.name;
    for (const Cli::OptionText& option : command.options) {
      EXPECT_NE(shown.out.find(option.name), std::string::npos) << option.name;
    }
  }
}
