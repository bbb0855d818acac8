// Job files for tests, and trees as one line of text.
#ifndef KELPBOX_TESTS_JOBS_JOB_FILES_H_
#define KELPBOX_TESTS_JOBS_JOB_FILES_H_

#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <memory>
#include <sstream>
#include <string>
#include <vector>

#include "jobs/diagnostic.h"
#include "jobs/job.h"
#include "jobs/overrides.h"
#include "jobs/read_toml.h"
#include "jobs/value.h"

namespace JobFiles {

// A folder that is removed with all files.
class Folder {
 public:
  Folder() : path_(testing::TempDir() + "jobs_XXXXXX") {
    if (::mkdtemp(path_.data()) == nullptr) {
      ADD_FAILURE() << "no temporary folder";
    }
  }
  ~Folder() { std::filesystem::remove_all(path_); }
  Folder(const Folder&) = delete;
  Folder& operator=(const Folder&) = delete;

  const std::string& path() const { return path_; }
  std::string write(const std::string& name, const std::string& text) const {
    const std::string path = path_ + "/" + name;
    std::ofstream(path, std::ios::binary) << text;
    return path;
  }

 private:
  std::string path_;
};

inline Jobs::Value parse(const std::string& text) {
  return Jobs::read_toml(std::make_shared<Jobs::SourceText>(Jobs::SourceText{"storm.toml", text}));
}

// What TOML would be, on one line and without a difference between forms of tables.
inline std::string dump(const Jobs::Value& value) {
  using Kind = Jobs::Value::Kind;
  std::ostringstream out;
  switch (value.kind) {
    case Kind::text:
      out << '"' << value.text << '"';
      break;
    case Kind::number:
      out << value.number;
      break;
    case Kind::boolean:
      out << (value.boolean ? "true" : "false");
      break;
    case Kind::other:
      out << "other";
      break;
    case Kind::array:
      for (const Jobs::Value& item : value.items) {
        out << (&item == value.items.data() ? "[" : ", ") << dump(item);
      }
      out << (value.items.empty() ? "[]" : "]");
      break;
    case Kind::table:
      for (const Jobs::Member& member : value.members) {
        out << (&member == value.members.data() ? "{" : ", ") << member.key << "="
            << dump(member.value);
      }
      out << (value.members.empty() ? "{}" : "}");
      break;
  }
  return out.str();
}

// The stretch of text that a span covers.
inline std::string covered(const Jobs::Span& span) {
  if (span.source == nullptr || span.line == 0) {
    return "";
  }
  std::istringstream lines(span.source->text);
  std::string line;
  for (std::uint32_t i = 0; i < span.line; ++i) {
    std::getline(lines, line);
  }
  return line.substr(span.column - 1, span.length);
}

// "fault | covered text | label" of each fault.
inline std::vector<std::string> lines_of(const Jobs::Diagnostics& faults) {
  std::vector<std::string> lines;
  for (const Jobs::Diagnostic& fault : faults) {
    lines.push_back(fault.fault + " | " + covered(fault.span) + " | " + fault.label);
  }
  return lines;
}

// The job after the options, on one line.
inline std::string after(const std::string& text, const std::vector<std::string>& options) {
  Jobs::Value job = parse(text);
  Jobs::Diagnostics faults;
  Jobs::apply_overrides(job, options, faults);
  EXPECT_EQ(lines_of(faults), std::vector<std::string>());
  return dump(job);
}

// The faults of the options. The job must stay as it was.
inline std::vector<std::string> faults_of(const std::string& text,
                                          const std::vector<std::string>& options) {
  Jobs::Value job = parse(text);
  const std::string before = dump(job);
  Jobs::Diagnostics faults;
  Jobs::apply_overrides(job, options, faults);
  EXPECT_EQ(dump(job), before) << "a fault changes nothing";
  return lines_of(faults);
}

}  // namespace JobFiles

#endif  // KELPBOX_TESTS_JOBS_JOB_FILES_H_
