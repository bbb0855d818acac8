#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <sstream>
#include <string>

#include "jobs/input_files.h"
#include "jobs/job_folder.h"
#include "jobs/run.h"

namespace Jobs {
namespace {

using Testing::example;
using Testing::JobFolder;

std::string contents(const std::string& path) {
  std::ifstream in(path, std::ios::binary);
  std::ostringstream text;
  text << in.rdbuf();
  return text.str();
}

const std::string rest =
    "[run]\nrepeat = \"64 s\"\n"
    "[[sea]]\n[[sea.wave]]\nkind = \"single\"\nf = \"0.5 Hz\"\na = \"20 mm\"\n";

std::string job(const std::string& site) { return "site = \"" + site + "\"\n" + rest; }

// The flume of the examples with one change, and the files that it includes.
void write_flume(const JobFolder& folder, const std::string& name, const std::string& from,
                 const std::string& to) {
  std::string text = contents(example("flume.site"));
  const std::size_t at = text.find(from);
  ASSERT_NE(at, std::string::npos);
  folder.write(name, text.replace(at, from.size(), to));
  for (const char* included : {"common/limits.site", "common/water.site"}) {
    const std::filesystem::path parent = std::filesystem::path(name).parent_path();
    folder.write((parent / included).string(), contents(example(included)));
  }
}

std::string refusal(const std::string& from, const std::string& to) {
  const JobFolder folder;
  write_flume(folder, "flume.site", from, to);
  return folder.refusal(job("flume.site"));
}

TEST(ReadSite, SaysWhereItLookedForAMissingSite) {
  const JobFolder folder;
  EXPECT_EQ(
      folder.refusal(job("none.site")),
      "1: the site `none.site` does not exist (looked for in the folder " + folder.path() + ")\n");
  EXPECT_EQ(folder.refusal(job("sites/none.site")),
            "1: the site `sites/none.site` does not exist (looked for in the folder " +
                folder.path() + "/sites)\n");
}

TEST(ReadSite, RefusesAFolder) {
  const JobFolder folder;
  std::filesystem::create_directory(folder.file("sites"));
  EXPECT_EQ(folder.refusal(job("sites")), "1: the site `sites` is a folder, not a file\n");
}

TEST(ReadSite, PointsAtASyntaxErrorInTheScript) {
  const JobFolder folder;
  write_flume(folder, "flume.site", "base_rate = 50;", "base_rate 50;");
  const Diagnostics faults = folder.faults(job("flume.site"));
  ASSERT_EQ(faults.size(), 1u);
  EXPECT_EQ(faults[0].fault, "syntax error, unexpected number, expecting =");
  ASSERT_NE(faults[0].span.source, nullptr);
  EXPECT_EQ(faults[0].span.source->name, folder.file("flume.site"));
  std::istringstream lines(faults[0].span.source->text);
  std::string line;
  for (std::uint32_t i = 0; i < faults[0].span.line; ++i) std::getline(lines, line);
  EXPECT_EQ(line, "    base_rate 50;");
  EXPECT_EQ(line.substr(faults[0].span.column - 1, faults[0].span.length), "50");
}

TEST(ReadSite, PointsAtASyntaxErrorInAnInclude) {
  const JobFolder folder;
  write_flume(folder, "flume.site", "Flume 1", "Flume 2");
  folder.write("common/water.site", "colour = 3;\n");
  const Diagnostics faults = folder.faults(job("flume.site"));
  ASSERT_EQ(faults.size(), 1u);
  EXPECT_EQ(faults[0].fault, "syntax error, unexpected unknown name, expecting }");
  EXPECT_EQ(faults[0].span.source->name, folder.file("common/water.site"));
  EXPECT_EQ(faults[0].span.line, 1u);
  EXPECT_EQ(faults[0].span.column, 1u);
  EXPECT_EQ(faults[0].span.length, 6u);
}

TEST(ReadSite, NamesEachKeyThatTheScriptDoesNotSet) {
  EXPECT_EQ(refusal("base_rate = 50;", ""),
            "1: the site `flume.site`: it does not set context{base_rate = $;}\n");
}

TEST(ReadSite, PassesOnWhatACheckOfTheSiteSays) {
  EXPECT_EQ(refusal("max_y = 0.8;", "max_y = -1;"),
            "1: the site `flume.site`: context::tank::Error::Max Y -1 is less than Min Y 0\n");
}

TEST(ReadSite, RefusesADepthThatIsNotFinite) {
  const std::string fault =
      "1: the site `flume.site`: its depth is not usable: it must be finite everywhere\n";
  EXPECT_EQ(refusal("depth = \"0.7\";", "depth = \"1/0\";"), fault);
}

// The files of the site, then a record.
TEST(ReadSite, GivesRecordsAFolderThatNoFileOfTheSiteIs) {
  const auto named = [](const std::string& site) {
    std::vector<InputFile> inputs{{"/lab/" + site, "", ""}, {"/data/x.csv", "", ""}};
    name_inputs(inputs, 1);
    return inputs[0].name + " " + inputs[1].name;
  };
  EXPECT_EQ(named("flume.site"), "flume.site records/x.csv");
  EXPECT_EQ(named("records"), "records records-2/x.csv");
}

TEST(ReadSite, NamesAMissingInclude) {
  const JobFolder folder;
  write_flume(folder, "flume.site", "common/water.site", "common/wine.site");
  EXPECT_EQ(folder.refusal(job("flume.site")), "1: the site `flume.site`: File \"" +
                                                   folder.file("common/wine.site") +
                                                   "\" does not exist\n");
}

TEST(ReadSite, PassesOnMessagesThatAnExperimentHides) {
  EXPECT_EQ(refusal("section[3] {", "section[7] {"),
            "1: the site `flume.site`: Accessing array out of bounds\n");
}

TEST(ReadSite, SurvivesADivisionOfAnIntegerByZero) {
  const std::string fault = "1: the site `flume.site`: it divides an integer by 0\n";
  EXPECT_EQ(refusal("base_rate = 50;", "base_rate = 50/0;"), fault);
  EXPECT_EQ(refusal("base_rate = 50;", "base_rate = 1/0;"), fault);
  EXPECT_EQ(refusal("base_rate = 50;", "base_rate = 100/2;"), "");
}

TEST(ReadSite, RefusesFilesThatAreNoScript) {
  const JobFolder folder;
  folder.write("empty.site", "");
  folder.write("binary.site", std::string("\x7f\x45\x4c\x46\x00\x01\xff\xfe", 8));
  EXPECT_EQ(folder.refusal(job("empty.site")),
            "1: the site `empty.site`: syntax error, unexpected end of input, expecting object "
            "key\n");
  EXPECT_NE(folder.refusal(job("binary.site")), "");
}

TEST(ReadSite, KeepsTheScriptAndItsIncludesAsInputs) {
  const JobFolder folder;
  write_flume(folder, "flume.site", "Flume 1", "Flume 2");
  const auto run = folder.build(job("flume.site"));
  ASSERT_EQ(run->inputs.size(), 3u);
  EXPECT_EQ(run->inputs[0].name, "flume.site");
  EXPECT_EQ(run->inputs[0].path, folder.file("flume.site"));
  EXPECT_EQ(run->inputs[0].text, contents(folder.file("flume.site")));
  EXPECT_EQ(run->inputs[1].name, "common/limits.site");
  EXPECT_EQ(run->inputs[2].name, "common/water.site");
}

std::vector<std::string> names(const Run& run) {
  std::vector<std::string> result;
  for (const InputFile& input : run.inputs) result.push_back(input.name);
  return result;
}

// The job again, from copies of its inputs.
std::unique_ptr<Run> run_of_copies(const JobFolder& copy, const Run& run, const std::string& rest_,
                                   const std::string& site) {
  for (const InputFile& input : run.inputs) copy.write("inputs/" + input.name, input.text);
  return copy.build("site = \"inputs/" + site + "\"\n" + rest_);
}

TEST(ReadSite, FindsTheIncludesOfASiteInAnotherFolderBelowInputs) {
  const JobFolder folder;
  write_flume(folder, "sites/flumes/flume.site", "include \"common/limits.site\"",
              "include \"../parts/limits.site\"");
  folder.write("sites/parts/limits.site", contents(example("common/limits.site")));
  std::filesystem::create_directory(folder.file("jobs"));
  const auto run = folder.build(job("jobs/../sites/flumes/flume.site"));
  EXPECT_EQ(names(*run), (std::vector<std::string>{"flumes/flume.site", "parts/limits.site",
                                                   "flumes/common/water.site"}));
  EXPECT_EQ(run->log.find(folder.path()), std::string::npos) << run->log;
  EXPECT_NE(run->log.find("Opened file  \"inputs/flumes/flume.site\" for input"),
            std::string::npos);

  const JobFolder copy;
  const auto again = run_of_copies(copy, *run, rest, "flumes/flume.site");
  EXPECT_EQ(names(*again), names(*run));
  EXPECT_EQ(again->log, run->log);
}

TEST(ReadSite, NamesRecordsBesideTheSite) {
  const JobFolder folder;
  const std::string record =
      "[[sea.wave]]\nkind = \"fronts\"\nfile = \"a/fronts.csv\"\n"
      "[[sea.wave]]\nkind = \"fronts\"\nfile = \"b/fronts.csv\"\n"
      "[[sea.wave]]\nkind = \"fronts\"\nfile = \"b/../a/fronts.csv\"\n";
  folder.write("a/fronts.csv", "f [Hz],a [mm]\n0.5,1\n");
  folder.write("b/fronts.csv", "f [Hz],a [mm]\n1.0,2\n");
  const auto run = folder.build("site = \"" + example("flume.site") + "\"\n" + rest + record);
  EXPECT_EQ(names(*run),
            (std::vector<std::string>{"flume.site", "common/limits.site", "common/water.site",
                                      "records/fronts.csv", "records/fronts-2.csv"}));
  EXPECT_EQ(run->inputs[4].text, "f [Hz],a [mm]\n1.0,2\n");

  const JobFolder copy;
  const auto again =
      run_of_copies(copy, *run,
                    rest +
                        "[[sea.wave]]\nkind = \"fronts\"\nfile = \"inputs/records/fronts.csv\"\n"
                        "[[sea.wave]]\nkind = \"fronts\"\nfile = \"inputs/records/fronts-2.csv\"\n"
                        "[[sea.wave]]\nkind = \"fronts\"\nfile = \"inputs/records/fronts.csv\"\n",
                    "flume.site");
  EXPECT_EQ(names(*again), names(*run));
  EXPECT_EQ(again->log, run->log);
}

TEST(ReadSite, FindsFilesWithQuotationMarksInTheirNames) {
  const JobFolder folder;
  write_flume(folder, "a & b/flume.site", "Flume 1", "Flume 2");
  std::filesystem::rename(folder.file("a & b"), folder.file("a \" & b"));
  const auto run = folder.build("site = 'a \" & b/flume.site'\n" + rest);
  EXPECT_EQ(run->inputs[0].path, folder.file("a \" & b/flume.site"));
  EXPECT_EQ(names(*run),
            (std::vector<std::string>{"flume.site", "common/limits.site", "common/water.site"}));
  EXPECT_EQ(run->log.find(folder.path()), std::string::npos) << run->log;
}

TEST(ReadSite, AnIncludeOfTwoSpellingsIsOneInput) {
  const JobFolder folder;
  const std::string include = "include \"common/limits.site\"";
  write_flume(folder, "flume.site", include,
              include + " include \"empty.site\" include \"common/../empty.site\"");
  folder.write("empty.site", "# nothing\n");
  const auto run = folder.prepare(job("flume.site"));
  std::size_t empty = 0;
  for (const InputFile& input : run->inputs) empty += input.text == "# nothing\n" ? 1 : 0;
  EXPECT_EQ(empty, 1u);
}

TEST(ReadSite, AScriptThatEndsTooEarlyIsNamed) {
  const JobFolder folder;
  folder.write("open.site", "context {\n");
  const std::string text = folder.refusal(job("open.site"));
  EXPECT_TRUE(text.starts_with("1: the site `open.site`: syntax error, unexpected end of input"))
      << text;
}

}  // namespace
}  // namespace Jobs
