// What the help says: whole examples, in the words of the pages.
#include <gtest/gtest.h>

#include <cctype>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <set>
#include <string>

#include "cli/help_pages.h"

namespace {

namespace fs = std::filesystem;

std::string contents(const fs::path& path) {
  std::ifstream file(path);
  return {std::istreambuf_iterator<char>(file), {}};
}

// In small letters.
std::set<std::string> words_of(const std::string& text) {
  std::set<std::string> words;
  std::string word;
  for (const char c : text + " ") {
    if (std::isalpha(static_cast<unsigned char>(c))) {
      word += static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
    } else if (!word.empty()) {
      words.insert(word);
      word.clear();
    }
  }
  return words;
}

std::set<std::string> words_of_the_pages() {
  const fs::path root = TEST_ROOT "/..";
  std::string text = contents(root / "README.md");
  for (const auto& entry : fs::directory_iterator(root / "docs")) {
    if (entry.path().extension() == ".md") text += contents(entry.path());
  }
  return words_of(text);
}

TEST(Help, ShowsEachExampleWhole) {
  for (const Cli::CommandText& command : Cli::commands()) {
    const std::string help = Cli::command_help(command);
    for (const Cli::Example& example : command.examples) {
      EXPECT_NE(help.find("  " + std::string(example.line)), std::string::npos) << help;
      if (example.comment.empty()) continue;
      EXPECT_NE(help.find("# " + std::string(example.comment) + "\n"), std::string::npos) << help;
    }
  }
}

// A word of the help that is in no page is mostly misspelt.
TEST(Help, UsesTheWordsOfThePages) {
  std::set<std::string> known = words_of_the_pages();
  ASSERT_GT(known.size(), 1000U);
  known.insert({"analysed", "force", "jq", "judge", "troff", "usage", "zfunc"});
  std::string help = Cli::short_help() + Cli::full_help();
  for (const Cli::CommandText& command : Cli::commands()) help += Cli::command_help(command);
  for (const std::string& word : words_of(help)) EXPECT_EQ(known.count(word), 1U) << word;
}

}  // namespace
