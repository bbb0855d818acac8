// What the tests of scripts share: failures as texts, files in a directory of their own.
#ifndef KELPBOX_TESTS_SCRIPT_TESTUTIL_H_
#define KELPBOX_TESTS_SCRIPT_TESTUTIL_H_

#include <gtest/gtest.h>
#include <unistd.h>

#include <filesystem>
#include <fstream>
#include <sstream>
#include <string>

#include "script/log.h"

// How a call failed: "text: ..." for a plain text, "string: ...", "item: ..." for a LogItm, or
// "nothing".
template <typename Call>
std::string failure(Call call) {
  try {
    call();
  } catch (const char* text) {
    return std::string("text: ") + text;
  } catch (const std::string& text) {
    return "string: " + text;
  } catch (const Script::LogItm& item) {
    std::ostringstream text;
    text << "item: " << item;
    return text.str();
  }
  return "nothing";
}

// A fresh directory that goes away with the test.
class TempDir {
 public:
  TempDir() {
    std::string pattern = (std::filesystem::temp_directory_path() / "script_XXXXXX").string();
    if (!mkdtemp(pattern.data())) throw std::string("no temporary directory");
    path_ = pattern;
  }
  ~TempDir() { std::filesystem::remove_all(path_); }
  TempDir(const TempDir&) = delete;
  TempDir& operator=(const TempDir&) = delete;

  const std::string& path() const { return path_; }
  std::string file(const std::string& name) const { return path_ + "/" + name; }
  std::string write(const std::string& name, const std::string& text) const {
    std::ofstream(file(name), std::ios::binary) << text;
    return file(name);
  }
  std::string contents(const std::string& name) const {
    std::ifstream in(file(name), std::ios::binary);
    std::ostringstream text;
    text << in.rdbuf();
    return text.str();
  }

 private:
  std::string path_;
};

#endif  // KELPBOX_TESTS_SCRIPT_TESTUTIL_H_
