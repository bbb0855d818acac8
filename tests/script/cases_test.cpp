// Runs the cases of the script language; cases/README.md describes their format.

#include <gtest/gtest.h>

#include <algorithm>
#include <cctype>
#include <iostream>
#include <map>
#include <optional>

#include "reading.h"
#include "support/temp_dir.h"
#include "test_tree.h"

namespace {

using Testing::TempDir;

struct Case {
  std::string name;
  std::string script;
  std::map<std::string, std::string> parts;

  std::optional<std::string> part(const std::string& key) const {
    const auto found = parts.find(key);
    return found == parts.end() ? std::nullopt : std::optional(found->second);
  }
};

std::ostream& operator<<(std::ostream& out, const Case& item) { return out << item.name; }

void check_part(const std::string& key) {
  static const std::vector<std::string> known = {"gives", "fails", "prints", "reports", "second"};
  if (key.starts_with("file ")) return;
  if (std::find(known.begin(), known.end(), key) == known.end()) {
    throw std::runtime_error("unknown part of a case: " + key);
  }
}

// Blank lines at the end of a part only separate the cases.
void trim(std::string& part) {
  while (part.ends_with("\n\n") || part == "\n") part.pop_back();
}

std::vector<Case> read_cases() {
  std::vector<std::filesystem::path> files;
  for (const auto& entry : std::filesystem::directory_iterator(TEST_ROOT "/script/cases")) {
    if (entry.path().extension() == ".txt") files.push_back(entry.path());
  }
  std::sort(files.begin(), files.end());

  std::vector<Case> cases;
  for (const auto& file : files) {
    std::ifstream in(file);
    std::string line;
    std::string* part = nullptr;
    while (std::getline(in, line)) {
      if (line.starts_with("=== ")) {
        cases.push_back({line.substr(4), "", {}});
        part = &cases.back().script;
      } else if (line.starts_with("--- ")) {
        check_part(line.substr(4));
        part = &cases.back().parts[line.substr(4)];
      } else if (part) {
        *part += line + "\n";
      }
    }
  }
  for (Case& item : cases) {
    trim(item.script);
    for (auto& part : item.parts) trim(part.second);
  }
  return cases;
}

std::string replaced(std::string text, const std::string& from, const std::string& to) {
  for (auto at = text.find(from); at != std::string::npos; at = text.find(from, at + to.size())) {
    text.replace(at, from.size(), to);
  }
  return text;
}

// Marks its lines to distinguish them from those of the reader.
class MarkedLog : public Script::Log {
 public:
  void message(float, const Script::LogItm& item) override { message(item); }
  void message(const Script::LogItm& item) override { std::cout << "log: " << item << "\n"; }
  void build() override {}
};

class ScriptCase : public testing::TestWithParam<Case> {};

TEST_P(ScriptCase, HasTheListedOutcome) {
  const Case& item = GetParam();
  const TempDir dir;
  const std::string main = dir.write("main.txt", item.script);
  std::string second;
  for (const auto& [key, text] : item.parts) {
    if (key == "second") second = dir.write("second.txt", text);
    if (!key.starts_with("file ")) continue;
    const std::filesystem::path file = dir.file(key.substr(5));
    std::filesystem::create_directories(file.parent_path());
    dir.write(key.substr(5), text);
  }
  const auto expand = [&](const std::string& text) {
    return replaced(replaced(text, "<main>", main), "<dir>", dir.path());
  };

  MarkedLog log;
  Script::Serialise<TestTree::Tank> reader("Tank");
  reader.attach_log(log);
  std::ostringstream report;
  const auto [failure, printed, errors] = read_files(reader, report, main, second);

  ASSERT_NE(item.part("gives").has_value(), item.part("fails").has_value());
  if (const auto fails = item.part("fails")) {
    EXPECT_EQ(failure + "\n", expand(*fails)) << errors;
  } else {
    ASSERT_EQ(failure, Testing::nothing_thrown) << errors;
    ASSERT_NE(reader.object(), nullptr);
    EXPECT_EQ(reader.object()->dump(), *item.part("gives"));
  }
  if (const auto prints = item.part("prints")) {
    std::string expected = expand(*prints);
    // Each line of a case ends in a newline, even if the last one printed does not.
    EXPECT_EQ(printed.ends_with("\n") ? printed : printed + "\n", expected);
  }
  if (const auto reports = item.part("reports")) {
    EXPECT_EQ(report.str(), *reports);
  }
}

std::string test_name(const testing::TestParamInfo<Case>& info) {
  std::string name;
  bool capital = true;
  for (const char c : info.param.name) {
    if (std::isalnum(static_cast<unsigned char>(c)) == 0) {
      capital = true;
    } else {
      name += capital ? static_cast<char>(std::toupper(static_cast<unsigned char>(c))) : c;
      capital = false;
    }
  }
  return name;
}

INSTANTIATE_TEST_SUITE_P(Script, ScriptCase, testing::ValuesIn(read_cases()), test_name);

}  // namespace
