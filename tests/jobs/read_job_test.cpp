#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "jobs/diagnostic.h"
#include "jobs/job.h"
#include "jobs/job_files.h"

namespace {

using JobFiles::dump;
using JobFiles::lines_of;
using Jobs::Diagnostics;
using Jobs::Job;
using Lines = std::vector<std::string>;

const std::string storm =
    "title = \"Storm from 15 degrees\"\n"
    "site = \"basin.site\"\n"
    "[tune]\n"
    "drive_gain = \"1.1\"\n"
    "[run]\n"
    "repeat = \"256 s\"\n"
    "dalrymple = false\n"
    "[[sea]]\n"
    "name = \"storm\"\n"
    "holds = { x = \"12 m\", t = \"128 s\" }\n"
    "  [[sea.wave]]\n"
    "  kind = \"jonswap\"\n"
    "  hs = \"80 mm\"\n"
    "  gamma = 3.3\n"
    "  [[sea.wave]]\n"
    "  f = \"1 Hz\"\n"
    "  kind = \"single\"\n"
    "  [[sea.change]]\n"
    "  kind = \"AngleSpread\"\n"
    "  seed = 7\n"
    "[[sea]]\n"
    "  [[sea.wave]]\n"
    "  kind = \"ochi\"\n"
    "[drive]\n"
    "ramp = \"5 s\"\n"
    "[[point]]\n"
    "x = \"1 m\"\n"
    "[[point]]\n"
    "x = \"12 m\"\n"
    "name = \"model\"\n"
    "[field]\n"
    "rate = \"10 Hz\"\n"
    "x = { from = \"0 m\", to = \"30 m\", step = \"0.25 m\" }\n"
    "[outputs]\n"
    "netcdf = false\n";

const std::string shortest =
    "site = \"basin.site\"\n"
    "[run]\n"
    "repeat = \"256 s\"\n"
    "[[sea]]\n"
    "[[sea.wave]]\n"
    "kind = \"single\"\n";

class ReadJob : public testing::Test {
 protected:
  Job read(const std::string& text, const std::vector<std::string>& options = {}) {
    faults_.clear();
    return Jobs::read_job(folder_.write("storm.toml", text), options, faults_);
  }

  // The faults of a text, in its order.
  Lines faults(const std::string& text, const std::vector<std::string>& options = {}) {
    read(text, options);
    Jobs::sort_by_place(faults_);
    return lines_of(faults_);
  }

  JobFiles::Folder folder_;
  Diagnostics faults_;
};

TEST_F(ReadJob, EveryPartIsFound) {
  const Job job = read(storm);
  EXPECT_EQ(lines_of(faults_), Lines());
  EXPECT_EQ(job.title, "Storm from 15 degrees");
  EXPECT_EQ(job.site, "basin.site");
  EXPECT_EQ(JobFiles::covered(job.site_span), "\"basin.site\"");
  EXPECT_EQ(dump(job.tune.parameters), "{drive_gain=\"1.1\"}");
  EXPECT_EQ(dump(job.run.parameters), "{repeat=\"256 s\", dalrymple=false}");
  EXPECT_EQ(dump(job.drive.parameters), "{ramp=\"5 s\"}");
  EXPECT_TRUE(job.has_field);
  EXPECT_EQ(dump(job.field.parameters),
            "{rate=\"10 Hz\", x={from=\"0 m\", to=\"30 m\", step=\"0.25 m\"}}");
  EXPECT_TRUE(job.csv);
  EXPECT_FALSE(job.netcdf);
  EXPECT_EQ(job.source->text, storm);
}

TEST_F(ReadJob, WavesAndChangesHaveTheirKindApart) {
  const Job job = read(storm);
  ASSERT_EQ(job.seas.size(), 2U);
  EXPECT_EQ(job.seas[0].name, "storm");
  EXPECT_EQ(dump(job.seas[0].holds.parameters), "{x=\"12 m\", t=\"128 s\"}");
  ASSERT_EQ(job.seas[0].waves.size(), 2U);
  EXPECT_EQ(job.seas[0].waves[0].kind, "jonswap");
  EXPECT_EQ(job.seas[0].waves[0].title, "a `jonswap` wave");
  EXPECT_EQ(dump(job.seas[0].waves[0].parameters), "{hs=\"80 mm\", gamma=3.3}");
  EXPECT_EQ(JobFiles::covered(job.seas[0].waves[0].span), "[[sea.wave]]");
  EXPECT_EQ(JobFiles::covered(job.seas[0].waves[0].kind_span), "\"jonswap\"");
  EXPECT_EQ(job.seas[0].waves[1].kind, "single");
  EXPECT_EQ(dump(job.seas[0].waves[1].parameters), "{f=\"1 Hz\"}");
  ASSERT_EQ(job.seas[0].changes.size(), 1U);
  EXPECT_EQ(job.seas[0].changes[0].title, "an `AngleSpread` change");
  EXPECT_EQ(dump(job.seas[0].changes[0].parameters), "{seed=7}");
  ASSERT_EQ(job.seas[1].waves.size(), 1U);
  EXPECT_EQ(job.seas[1].waves[0].title, "an `ochi` wave");
}

TEST_F(ReadJob, SeasAndPointsWithoutANameHaveTheirNumber) {
  const Job job = read(storm);
  EXPECT_EQ(job.seas[1].name, "sea 2");
  ASSERT_EQ(job.points.size(), 2U);
  EXPECT_EQ(job.points[0].name, "point 1");
  EXPECT_EQ(job.points[1].name, "model");
  EXPECT_EQ(dump(job.points[1].part.parameters), "{x=\"12 m\"}");
  EXPECT_EQ(job.points[1].part.title, "the point `model`");
}

TEST_F(ReadJob, TheShortestJobHasDefaults) {
  const Job job = read(shortest);
  EXPECT_EQ(lines_of(faults_), Lines());
  EXPECT_EQ(job.title, "storm");
  EXPECT_FALSE(job.has_field);
  EXPECT_TRUE(job.csv);
  EXPECT_TRUE(job.netcdf);
  EXPECT_TRUE(job.points.empty());
  EXPECT_EQ(dump(job.drive.parameters), "{}");
  EXPECT_EQ(job.drive.title, "[drive]");
  EXPECT_EQ(job.drive.span.source, job.source);
  EXPECT_EQ(job.drive.span.line, 0U);
  EXPECT_EQ(dump(job.seas[0].holds.parameters), "{}");
  EXPECT_EQ(JobFiles::covered(job.seas[0].holds.span), "[[sea]]");
}

TEST_F(ReadJob, FolderAndStemComeFromThePath) {
  EXPECT_EQ(read(shortest).folder, folder_.path());
  EXPECT_EQ(read(shortest).stem, "storm");
  Diagnostics faults;
  EXPECT_EQ(Jobs::read_job(folder_.write("a.b.toml", shortest), {}, faults).stem, "a.b");
  EXPECT_EQ(Jobs::read_job(folder_.write("a.job", shortest), {}, faults).stem, "a.job");
  const auto here = std::filesystem::current_path();
  std::filesystem::current_path(folder_.path());
  EXPECT_EQ(Jobs::read_job("storm.toml", {}, faults).folder, ".");
  std::filesystem::current_path(here);
}

TEST_F(ReadJob, WhatIsMissingIsNamed) {
  EXPECT_EQ(faults("title = \"x\"\n"),
            (Lines{"the job has no `site` |  | write site = \"...\" before the first table",
                   "the job has no [run] |  | ", "the job has no [[sea]] |  | "}));
  EXPECT_EQ(faults("site = \"a\"\nsea = []\n[run]\n"), (Lines{"the job has no [[sea]] |  | "}));
  EXPECT_EQ(faults("site = \"a\"\n[run]\n[[sea]]\nname = \"storm\"\n[[sea]]\nwave = []\n"),
            (Lines{"the sea `storm` has no [[sea.wave]] | [[sea]] | ",
                   "the sea `sea 2` has no [[sea.wave]] | [[sea]] | "}));
}

TEST_F(ReadJob, AWaveAndAChangeNeedAKind) {
  EXPECT_EQ(faults(shortest + "[[sea.wave]]\nhs = 1\n[[sea.change]]\n[[sea.change]]\nkind = 3\n"
                              "[[sea.change]]\nkind = \" \"\n"),
            (Lines{"a [[sea.wave]] needs a `kind`: \"jonswap\" or another of `kelpbox seas` | "
                   "[[sea.wave]] | ",
                   "a [[sea.change]] needs a `kind`: \"cos2s\", \"AngleSpread\" or another | "
                   "[[sea.change]] | ",
                   "`kind` must be a text | 3 | this is a number",
                   "`kind` must not be empty | \" \" | "}));
}

TEST_F(ReadJob, UnknownKeysHaveTheNearestKnownOne) {
  EXPECT_EQ(faults("titel = \"x\"\n" + shortest +
                   "nam = \"x\"\n[outputs]\ncvs = true\n[[pont]]\n"
                   "[runs]\n"),
            (Lines{"unknown key `titel` in the job | titel | did you mean `title`?",
                   "unknown key `cvs` in [outputs] | cvs | did you mean `csv`?",
                   "unknown key [[pont]] in the job | pont | did you mean `point`?",
                   "unknown key [runs] in the job | runs | did you mean `run`?"}));
  EXPECT_EQ(
      faults("site = \"a\"\n[run]\n[[sea]]\nnam = \"x\"\nwhat = 1\nwave = [{kind = \"x\"}]\n"),
      (Lines{"unknown key `nam` in a [[sea]] | nam | did you mean `name`?",
             "unknown key `what` in a [[sea]] | what | known keys: name, holds, wave, "
             "change"}));
}

TEST_F(ReadJob, AKeyInTheWrongTableIsSentToItsOwn) {
  EXPECT_EQ(faults("rate = \"50 Hz\"\ncsv = true\nrepeat = \"2 s\"\n" + shortest +
                   "[outputs]\nramp = \"5 s\"\n[[wave]]\n"),
            (Lines{"unknown key `rate` in the job | rate | `rate` belongs in [drive]",
                   "unknown key `csv` in the job | csv | `csv` belongs in [outputs]",
                   "unknown key `repeat` in the job | repeat | `repeat` belongs in [run]",
                   "unknown key `ramp` in [outputs] | ramp | `ramp` belongs in [drive]",
                   "unknown key [[wave]] in the job | wave | `wave` belongs in [[sea]], as "
                   "[[sea.wave]]"}));
}

TEST_F(ReadJob, EveryKeyOfOneTableIsSentThereFromTheJob) {
  const std::pair<std::string, std::string> homes[] = {{"kind", "[[sea.wave]]"},
                                                       {"holds", "[[sea]]"},
                                                       {"rate", "[drive]"},
                                                       {"ramp", "[drive]"},
                                                       {"stop_at_limit", "[drive]"},
                                                       {"delta_angle", "[[point]]"},
                                                       {"csv", "[outputs]"},
                                                       {"netcdf", "[outputs]"},
                                                       {"report", "[outputs]"},
                                                       {"repeat", "[run]"},
                                                       {"wave", "[[sea]], as [[sea.wave]]"},
                                                       {"change", "[[sea]], as [[sea.change]]"}};
  for (const auto& [key, home] : homes) {
    EXPECT_EQ(faults(key + " = 1\n" + shortest),
              (Lines{"unknown key `" + key + "` in the job | " + key + " | `" + key +
                     "` belongs in " + home}));
  }
}

TEST_F(ReadJob, ValuesOfTheWrongTypeAreReported) {
  EXPECT_EQ(faults("title = 7\nsite = [\"a\"]\ntune = true\nfield = \"x\"\npoint = 3\n[run]\n"
                   "[[sea]]\nholds = \"x\"\nwave = [1, {kind = \"single\"}]\n[outputs]\ncsv = 1\n"
                   "netcdf = \"yes\"\n"),
            (Lines{"`title` must be a text | 7 | this is a number",
                   "`site` must be a text | [\"a\"] | this is a list",
                   "[tune] must be a table | true | this is true or false",
                   "[field] must be a table | \"x\" | this is a text",
                   "[[point]] must be a table | 3 | this is a number",
                   "`holds` must be a table | \"x\" | this is a text",
                   "[[sea.wave]] must be a table | 1 | this is a number",
                   "`csv` must be true or false | 1 | this is a number",
                   "`netcdf` must be true or false | \"yes\" | "}));
  EXPECT_EQ(faults("title = 2024-01-01\n" + shortest),
            (Lines{"`title` must be a text | 2024-01-01 | this is a date or time"}));
  EXPECT_EQ(faults("title = \"\"\n" + shortest), (Lines{"`title` must not be empty | \"\" | "}));
}

TEST_F(ReadJob, SingleAndDoubleBracketsAreNotConfused) {
  EXPECT_EQ(faults("site = \"a\"\n[[run]]\nrepeat = 1\n[sea]\n[sea.wave]\nkind = \"single\"\n"),
            (Lines{"[[run]] must be [run] | [[run]] | there is only one",
                   "[sea] must be [[sea]] | [sea] | there can be more than one",
                   "[sea.wave] must be [[sea.wave]] | [sea.wave] | there can be more than one"}));
}

TEST_F(ReadJob, OutputsAcceptTheLibrarysWordsForABoolean) {
  const Job job = read(shortest + "[outputs]\ncsv = \"False\"\nnetcdf = \"True\"\n");
  EXPECT_EQ(lines_of(faults_), Lines());
  EXPECT_FALSE(job.csv);
  EXPECT_TRUE(job.netcdf);
}

TEST_F(ReadJob, OutputsAreATableWithAReport) {
  const Job job = read(shortest + "[outputs]\nreport = false\n");
  EXPECT_EQ(lines_of(faults_), Lines());
  EXPECT_FALSE(job.report);
  EXPECT_EQ(faults("outputs = 3\n" + shortest),
            (Lines{"[outputs] must be a table | 3 | this is a number"}));
}

TEST_F(ReadJob, AnUnknownListIsNamedAsItStandsInTheFile) {
  EXPECT_EQ(faults("titles = [\"a\"]\ntitels = []\n" + shortest),
            (Lines{"unknown key `titles` in the job | titles | did you mean `title`?",
                   "unknown key `titels` in the job | titels | did you mean `title`?"}));
}

TEST_F(ReadJob, NamesAreUniqueAndNoNumbers) {
  EXPECT_EQ(faults(shortest + "[[sea]]\nname = \"sea 1\"\nwave = [{kind = \"x\"}]\n"
                              "[[point]]\nname = \"a\"\n[[point]]\nname = \"a\"\n"
                              "[[point]]\nname = \"12\"\n[[point]]\nname = \"sea 1\"\n"),
            (Lines{"there is another sea with the name `sea 1` | \"sea 1\" | ",
                   "there is another point with the name `a` | \"a\" | ",
                   "`name` must not be a number | \"12\" | in a key, point.12 is the one with that "
                   "number"}));
}

TEST_F(ReadJob, OptionsAreAppliedAndKept) {
  const Job job = read(shortest, {"sea.hs=100 mm", "title=\"New\"", "outputs.csv=false"});
  EXPECT_EQ(lines_of(faults_), Lines());
  EXPECT_EQ(dump(job.seas[0].waves[0].parameters), "{hs=\"100 mm\"}");
  EXPECT_EQ(job.title, "New");
  EXPECT_FALSE(job.csv);
  EXPECT_EQ(job.options.size(), 3U);
  EXPECT_EQ(faults(shortest, {"runn.repeat=3"}),
            (Lines{"`runn` is no part of a job | runn | did you mean `run`?"}));
}

TEST_F(ReadJob, ASetEntryIsAppliedBeforeTheOptions) {
  const std::string text = shortest + "[[set]]\nkey = \"title\"\nvalue = \"from the file\"\n";
  EXPECT_EQ(read(text).title, "from the file");
  EXPECT_EQ(read(text, {"title=from the option"}).title, "from the option");
}

TEST_F(ReadJob, AnEmptyFileIsOneFault) {
  for (const std::string text : {"", "# only a comment\n", "\xEF\xBB\xBF"}) {
    try {
      read(text);
      ADD_FAILURE() << "no fault";
    } catch (const Jobs::BadJob& bad) {
      EXPECT_EQ(lines_of(bad.faults), (Lines{"the job is empty |  | `kelpbox new` writes one"}));
    }
  }
}

TEST_F(ReadJob, ValuesKnowTheLineThatAFaultShows) {
  const Job job = read(
      "site = \"a\"\n[run]\n[[sea]]\n    [[sea.wave]]\n      kind  = \"jonswap\"\n"
      "      hs    = \"80 s\"\n");
  const Jobs::Member& hs = job.seas[0].waves[0].parameters.members.at(0);
  const std::string path = folder_.path() + "/storm.toml";
  EXPECT_EQ(Jobs::show({"`hs` is a length, but \"80 s\" is a time", hs.value.span,
                        "use m, mm, cm, ft, in"}),
            "error: `hs` is a length, but \"80 s\" is a time\n"
            " --> " +
                path +
                ":6:15\n"
                "  |\n"
                "6 |       hs    = \"80 s\"\n"
                "  |               ^^^^^^ use m, mm, cm, ft, in\n");
}

TEST_F(ReadJob, AFileThatIsMissingOrNotTomlIsOneFault) {
  Diagnostics faults;
  EXPECT_THROW(Jobs::read_job(folder_.path() + "/no.toml", {}, faults), Jobs::BadJob);
  EXPECT_THROW(read("site = basin.site\n"), Jobs::BadJob);
}

}  // namespace
