// `kelpbox report`, and the page of `kelpbox run`.

#include <filesystem>
#include <nlohmann/json.hpp>

#include "cli/program_run.h"
#include "cli/sample_jobs.h"

using Testing::Ran;
using Testing::run_program;

namespace {

namespace fs = std::filesystem;
using Json = nlohmann::json;

class ReportCommand : public testing::Test {
 protected:
  ReportCommand() {
    setting_.folder = folder_.path();
    folder_.write("a.toml", Testing::quick_job());
  }
  Ran run(const Testing::Words& words) { return run_program(words, setting_); }
  void run_a() { ASSERT_EQ(run({"run", "a.toml", "--quiet"}).code, 0); }
  std::string page() const { return folder_.contents("a.out/report.html"); }

  Testing::TempDir folder_;
  Testing::Setting setting_;
};

const std::string not_results =
    ": is not a folder of results of `kelpbox run`: it has no summary.json";

}  // namespace

TEST_F(ReportCommand, MakesTheSamePageAsTheRun) {
  run_a();
  const std::string made = page();
  ASSERT_FALSE(made.empty());
  fs::remove(folder_.file("a.out/report.html"));
  const Ran ran = run({"report", "a.out/"});
  EXPECT_EQ(ran.code, 0) << ran.err;
  EXPECT_EQ(ran.out, "Page: a.out/report.html\n");
  EXPECT_EQ(ran.err, "");
  EXPECT_TRUE(page() == made);
}

TEST_F(ReportCommand, IsSilentIfAsked) {
  run_a();
  const Ran ran = run({"report", "a.out", "--quiet"});
  EXPECT_EQ(ran.code, 0);
  EXPECT_EQ(ran.out + ran.err, "");
}

TEST_F(ReportCommand, GoesOnAfterAFolderThatIsNone) {
  run_a();
  fs::remove(folder_.file("a.out/report.html"));
  const Ran ran = run({"report", "none", ".", "a.out"});
  EXPECT_EQ(ran.code, 2);
  EXPECT_EQ(ran.out, "Page: a.out/report.html\n");
  EXPECT_EQ(ran.err, "error: none: there is no such folder\nerror: ." + not_results + "\n");
  EXPECT_FALSE(page().empty());
}

TEST_F(ReportCommand, AnswersMachines) {
  run_a();
  const Ran ran = run({"report", "a.out", "none", "--json"});
  EXPECT_EQ(ran.code, 2);
  EXPECT_EQ(ran.err, "");
  const Json pages = Json::parse(ran.out).at("pages");
  ASSERT_EQ(pages.size(), 2U);
  EXPECT_EQ(pages[0], (Json{{"folder", "a.out"}, {"exit_code", 0}, {"page", "a.out/report.html"}}));
  EXPECT_EQ(pages[1].at("error").at("message"), "none: there is no such folder");
  EXPECT_EQ(pages[1].at("exit_code"), 2);
}

TEST_F(ReportCommand, NamesABrokenFileAndKeepsTheOldPage) {
  run_a();
  const std::string made = page();
  folder_.write("a.out/drive.nc", "no NetCDF");
  const Ran ran = run({"report", "a.out"});
  EXPECT_EQ(ran.code, 2);
  EXPECT_EQ(ran.err, "error: a.out/drive.nc: NetCDF: Unknown file format\n");
  EXPECT_TRUE(page() == made);
}

TEST_F(ReportCommand, NamesAPageThatCannotBeWritten) {
  run_a();
  fs::remove(folder_.file("a.out/report.html"));
  fs::create_directory(folder_.file("a.out/report.html"));
  const Ran ran = run({"report", "a.out"});
  EXPECT_EQ(ran.code, 3);
  EXPECT_EQ(ran.err, "error: cannot write a.out/report.html: Is a directory\n");
  for (const auto& entry : fs::directory_iterator(folder_.file("a.out"))) {
    EXPECT_NE(entry.path().filename().string()[0], '.') << entry.path();
  }
}

TEST_F(ReportCommand, NeedsAFolder) {
  const Ran ran = run({"report"});
  EXPECT_EQ(ran.code, 2);
  EXPECT_EQ(ran.err, "error: `kelpbox report` needs OUT (kelpbox help report)\n");
}

TEST_F(ReportCommand, IsNotNeededAfterARun) {
  const Ran ran = run({"run", "a.toml"});
  EXPECT_EQ(ran.code, 0);
  const std::string end = "Written: a.out\nPage: a.out/report.html\n";
  ASSERT_GE(ran.out.size(), end.size());
  EXPECT_EQ(ran.out.substr(ran.out.size() - end.size()), end);
  const Ran json = run({"run", "a.toml", "--json"});
  EXPECT_EQ(Json::parse(json.out).at("jobs").at(0).at("page"), "a.out/report.html");
}

TEST_F(ReportCommand, MakesAPageThatTheJobDidNotWant) {
  const Ran ran = run({"run", "a.toml", "--set", "outputs.report=false"});
  EXPECT_EQ(ran.code, 0) << ran.err;
  EXPECT_EQ(ran.out.find("Page:"), std::string::npos);
  EXPECT_FALSE(fs::exists(folder_.file("a.out/report.html")));
  EXPECT_EQ(run({"report", "a.out"}).code, 0);
  // The folder is still one that the next run replaces.
  EXPECT_EQ(run({"run", "a.toml"}).code, 0);
}
