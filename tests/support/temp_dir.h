// Files that a test writes for the library to read.
#ifndef KELPBOX_TESTS_SUPPORT_TEMP_DIR_H_
#define KELPBOX_TESTS_SUPPORT_TEMP_DIR_H_

#include <stdlib.h>

#include <filesystem>
#include <fstream>
#include <sstream>
#include <string>

namespace Testing {

// A new directory, removed with everything in it at the end of the scope.
class TempDir {
 public:
  TempDir() {
    std::string pattern = (std::filesystem::temp_directory_path() / "kelpbox_XXXXXX").string();
    if (!mkdtemp(pattern.data())) throw std::string("no temporary directory");
    path_ = pattern;
  }
  ~TempDir() { std::filesystem::remove_all(path_); }
  TempDir(const TempDir&) = delete;
  TempDir& operator=(const TempDir&) = delete;

  const std::string& path() const { return path_; }
  std::string file(const std::string& name) const { return path_ + "/" + name; }
  // Returns the path of the file.
  std::string write(const std::string& name, const std::string& contents) const {
    std::ofstream(file(name), std::ios::binary) << contents;
    return file(name);
  }
  std::string contents(const std::string& name) const {
    std::ifstream in(file(name), std::ios::binary);
    std::ostringstream out;
    out << in.rdbuf();
    return out.str();
  }

 private:
  std::string path_;
};

}  // namespace Testing

#endif  // KELPBOX_TESTS_SUPPORT_TEMP_DIR_H_
