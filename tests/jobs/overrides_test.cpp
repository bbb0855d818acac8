#include "jobs/overrides.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "jobs/diagnostic.h"
#include "jobs/job_files.h"

namespace {

using JobFiles::after;
using JobFiles::faults_of;
using JobFiles::parse;
using Jobs::Diagnostics;
using Jobs::Value;
using Lines = std::vector<std::string>;

const std::string one_sea =
    "site = \"a\"\n"
    "[run]\n"
    "repeat = \"256 s\"\n"
    "[[sea]]\n"
    "name = \"storm\"\n"
    "[[sea.wave]]\n"
    "kind = \"jonswap\"\n"
    "hs = \"80 mm\"\n"
    "[[sea.change]]\n"
    "kind = \"AngleSpread\"\n"
    "seed = 7\n"
    "[[point]]\n"
    "name = \"model\"\n"
    "x = \"1 m\"\n"
    "[field]\n"
    "x = { from = \"0 m\", step = \"1 m\" }\n";

const std::string two_seas =
    "[[sea]]\n"
    "name = \"storm\"\n"
    "[[sea.wave]]\n"
    "hs = 1\n"
    "[[sea.wave]]\n"
    "f = 2\n"
    "[[sea]]\n"
    "name = \"the swell\"\n"
    "[[sea.wave]]\n"
    "hs = 3\n";

TEST(Overrides, ValuesAreTomlOrTheTextItself) {
  const std::string text = "[run]\nx = 0\n";
  EXPECT_EQ(after(text, {"run.x=\"100 mm\""}), "{run={x=\"100 mm\"}}");
  EXPECT_EQ(after(text, {"run.x=100 mm"}), "{run={x=\"100 mm\"}}");
  EXPECT_EQ(after(text, {"run.x = 'a \"b\"' "}), "{run={x=\"a \"b\"\"}}");
  EXPECT_EQ(after(text, {"run.x=7.5"}), "{run={x=7.5}}");
  EXPECT_EQ(after(text, {"run.x=true"}), "{run={x=true}}");
  EXPECT_EQ(after(text, {"run.x=True"}), "{run={x=\"True\"}}");
  EXPECT_EQ(after(text, {"run.x={a = 1}"}), "{run={x={a=1}}}");
  EXPECT_EQ(after(text, {"run.x=[1, 2]"}), "{run={x=[1, 2]}}");
  EXPECT_EQ(after(text, {"run.x="}), "{run={x=\"\"}}");
  EXPECT_EQ(after(text, {"run.x=a=b"}), "{run={x=\"a=b\"}}");
  EXPECT_EQ(after(text, {"run.x=\"\"\"two\nlines\"\"\""}), "{run={x=\"two\nlines\"}}");
}

TEST(Overrides, TextThatOnlyBeginsAsTomlIsText) {
  const std::string text = "[run]\nx = 0\n";
  EXPECT_EQ(after(text, {"run.x=7 # 8"}), "{run={x=\"7 # 8\"}}");
  EXPECT_EQ(after(text, {"run.x=7\ny = 8"}), "{run={x=\"7\ny = 8\"}}");
  EXPECT_EQ(after(text, {"run.x=\"a\" b"}), "{run={x=\"\"a\" b\"}}");
  EXPECT_EQ(after(text, {"run.x=2024-01-01"}), "{run={x=\"2024-01-01\"}}");
  EXPECT_EQ(after(text, {"run.x=\xC3\xA9"}), "{run={x=\"\xC3\xA9\"}}");
}

TEST(Overrides, PlainTablesAndTopLevelKeys) {
  EXPECT_EQ(after("site = \"a\"\n[run]\nr = 1\n", {"run.r=2", "site=b"}),
            "{site=\"b\", run={r=2}}");
  EXPECT_EQ(after("[field]\nx = {from = 1, step = 2}\n", {"field.x.step=3"}),
            "{field={x={from=1, step=3}}}");
}

TEST(Overrides, WhatIsMissingIsAdded) {
  EXPECT_EQ(after("a = 1\n", {"title=t", "drive.ramp=5 s", "field.x.step=3", "drive.rate=2"}),
            "{a=1, title=\"t\", drive={ramp=\"5 s\", rate=2}, field={x={step=3}}}");
}

TEST(Overrides, TheLastOneWins) {
  EXPECT_EQ(after("[run]\nr = 1\n", {"run.r=2", "run.r=3"}), "{run={r=3}}");
}

TEST(Overrides, ASeaIsChosenByNameNumberOrAlone) {
  const std::string expected = "{sea=[{name=\"storm\", wave=[{hs=9}]}]}";
  const std::string text = "[[sea]]\nname = \"storm\"\n[[sea.wave]]\nhs = 1\n";
  for (const std::string key :
       {"sea.hs", "sea.wave.hs", "sea.wave.1.hs", "sea.1.hs", "sea.1.wave.hs", "sea.1.wave.1.hs",
        "sea.storm.hs", "sea.storm.wave.hs", "sea.storm.wave.1.hs", " sea . storm . hs ",
        "sea.\"storm\".hs", "sea.'storm'.'hs'"}) {
    EXPECT_EQ(after(text, {key + "=9"}), expected) << key;
  }
}

TEST(Overrides, WavesOfSeveralSeas) {
  EXPECT_EQ(after(two_seas, {"sea.2.hs=9"}),
            "{sea=[{name=\"storm\", wave=[{hs=1}, {f=2}]}, {name=\"the swell\", wave=[{hs=9}]}]}");
  EXPECT_EQ(after(two_seas, {"sea.the swell.wave.hs=9", "sea.\"the swell\".g=8"}),
            "{sea=[{name=\"storm\", wave=[{hs=1}, {f=2}]}, "
            "{name=\"the swell\", wave=[{hs=9, g=8}]}]}");
  EXPECT_EQ(after(two_seas, {"sea.storm.wave.2.hs=9", "sea.storm.f=8"}),
            "{sea=[{name=\"storm\", wave=[{hs=1}, {f=8, hs=9}]}, "
            "{name=\"the swell\", wave=[{hs=3}]}]}");
}

TEST(Overrides, PositionsNamesChangesAndPoints) {
  EXPECT_EQ(after("[[sea]]\nholds = {x = 1}\n", {"sea.holds.t=2", "sea.name=n", "sea.n.holds.x=3"}),
            "{sea=[{holds={x=3, t=2}, name=\"n\"}]}");
  EXPECT_EQ(after("[[sea]]\n[[sea.change]]\nseed = 1\n", {"sea.seed=2", "sea.change.s=3"}),
            "{sea=[{change=[{seed=2, s=3}]}]}");
  EXPECT_EQ(
      after("[[point]]\nname = \"a\"\n[[point]]\nname = \"b\"\n", {"point.a.x=1", "point.2.x=2"}),
      "{point=[{name=\"a\", x=1}, {name=\"b\", x=2}]}");
  EXPECT_EQ(after("[[point]]\nx = 1\n", {"point.x=2", "point.1.y=3"}), "{point=[{x=2, y=3}]}");
}

TEST(Overrides, TheShortFormTakesTheOnlyPartThatSaysTheKey) {
  const std::string text =
      "[[sea]]\n[[sea.wave]]\nhs = 1\n[[sea.wave]]\nf = 2\n[[sea.change]]\nseed = 3\n";
  EXPECT_EQ(after(text, {"sea.hs=9"}), "{sea=[{wave=[{hs=9}, {f=2}], change=[{seed=3}]}]}");
  EXPECT_EQ(after(text, {"sea.seed=9"}), "{sea=[{wave=[{hs=1}, {f=2}], change=[{seed=9}]}]}");
}

TEST(Overrides, TheShortFormAddsToTheOnlyWave) {
  EXPECT_EQ(after("[[sea]]\n[[sea.wave]]\nhs = 1\n[[sea.change]]\nseed = 3\n", {"sea.tp=9"}),
            "{sea=[{wave=[{hs=1, tp=9}], change=[{seed=3}]}]}");
}

TEST(Overrides, AnAmbiguousKeyListsFullPaths) {
  EXPECT_EQ(faults_of(two_seas, {"sea.hs=9"}),
            (Lines{"the job has more than one [[sea]] | hs | one of sea.1.hs, sea.2.hs"}));
  EXPECT_EQ(faults_of(two_seas, {"sea.wave.2.hs=9"}),
            (Lines{"the job has more than one [[sea]] | wave | one of sea.1.wave.2.hs, "
                   "sea.2.wave.2.hs"}));
  EXPECT_EQ(faults_of(two_seas, {"sea.storm.wave.hs=9"}),
            (Lines{"the job has more than one [[sea.wave]] | hs | one of sea.storm.wave.1.hs, "
                   "sea.storm.wave.2.hs"}));
  EXPECT_EQ(faults_of(two_seas, {"sea.1.tp=9"}),
            (Lines{"no wave or change of the sea says `tp` | tp | one of sea.1.wave.1.tp, "
                   "sea.1.wave.2.tp"}));
  EXPECT_EQ(faults_of(one_sea, {"sea.kind=x"}),
            (Lines{"`kind` is in more than one part of the sea | kind | one of sea.wave.1.kind, "
                   "sea.change.1.kind"}));
}

TEST(Overrides, TheListedPathsAreAccepted) {
  EXPECT_EQ(after(two_seas, {"sea.2.wave.1.hs=9"}).find("hs=3"), std::string::npos);
  EXPECT_EQ(after(two_seas, {"sea.storm.wave.1.hs=9"}).find("hs=1"), std::string::npos);
  EXPECT_NE(after(one_sea, {"sea.change.1.kind=x"}).find("change=[{kind=\"x\""), std::string::npos);
}

TEST(Overrides, AKeyThatLeadsNowhereIsShownWhereItIsWrong) {
  EXPECT_EQ(faults_of(one_sea, {"see.hs=9", "runn.repeat=9", "zzz=1"}),
            (Lines{"`see` is no part of a job | see | did you mean `sea`?",
                   "`runn` is no part of a job | runn | did you mean `run`?",
                   "`zzz` is no part of a job | zzz | "}));
  EXPECT_EQ(faults_of(one_sea, {"sea.strom.wave.hs=9", "sea.storm.waves.hs=9"}),
            (Lines{"there is no [[sea]] `strom` | strom | did you mean `storm`?",
                   "`waves` is no part of a sea | waves | did you mean `wave`?"}));
  EXPECT_EQ(faults_of(one_sea, {"sea.2.hs=9", "sea.wave.2.hs=9", "sea.0.hs=9", "point.7.x=1"}),
            (Lines{"there is no [[sea]] number 2 | 2 | the job has 1",
                   "there is no [[sea.wave]] number 2 | 2 | the job has 1",
                   "there is no [[sea]] `0` | 0 | ",
                   "there is no [[point]] number 7 | 7 | the job has 1"}));
  EXPECT_EQ(faults_of(one_sea, {"point.modle.x=1", "sea.wave.jonswap.hs=9"}),
            (Lines{"there is no [[point]] `modle` | modle | did you mean `model`?",
                   "there is no [[sea.wave]] `jonswap` | jonswap | "}));
  EXPECT_EQ(faults_of("a = 1\n", {"sea.hs=9", "point.x=1"}),
            (Lines{"the job has no [[sea]] | sea | ", "the job has no [[point]] | point | "}));
  EXPECT_EQ(faults_of("[[sea]]\n", {"sea.wave.hs=9", "sea.hs=9"}),
            (Lines{"the job has no [[sea.wave]] | wave | ",
                   "no wave or change of the sea says `hs` | hs | "}));
}

TEST(Overrides, ATableIsNotAValueAndAValueNotATable) {
  EXPECT_EQ(faults_of(one_sea, {"run=9", "sea=9", "sea.storm=9", "sea.1.wave=9", "point.model=9"}),
            (Lines{"`run` is a table | run | name one of its keys: run.key",
                   "`sea` is a table | sea | name one of its keys: sea.key",
                   "`sea.storm` is a table | storm | name one of its keys: sea.storm.key",
                   "`sea.1.wave` is a table | wave | name one of its keys: sea.1.wave.key",
                   "`point.model` is a table | model | name one of its keys: point.model.key"}));
  EXPECT_EQ(faults_of(one_sea, {"run.repeat.x=9", "site.x=9", "field.x.from.y=1"}),
            (Lines{"`run.repeat` is not a table | repeat | ", "`site` is not a table | site | ",
                   "`field.x.from` is not a table | from | "}));
}

TEST(Overrides, AnOptionWithoutKeyOrValueIsRefused) {
  EXPECT_EQ(faults_of(one_sea, {"run.repeat", "=5", "run..repeat=5", "run.=5", "run.\"x=5",
                                "run.\"\"=5", "run.a\"b\"=5"}),
            (Lines{"the option has no value | run.repeat | write key=value",
                   "`` is not a key | =5 | write names joined by dots: run.repeat",
                   "`run..repeat` is not a key | run..repeat=5 | write names joined by dots: "
                   "run.repeat",
                   "`run.` is not a key | run.=5 | write names joined by dots: run.repeat",
                   "the option has no value | run.\"x=5 | write key=value",
                   "`run.\"\"` is not a key | run.\"\"=5 | write names joined by dots: run.repeat",
                   "`run.a\"b\"` is not a key | run.a\"b\"=5 | write names joined by dots: "
                   "run.repeat"}));
  EXPECT_EQ(faults_of(one_sea, {"run.repeat=\xFF"}).at(0).substr(0, 24),
            "the option is not UTF-8 ");
}

TEST(Overrides, ReplacedValuesPointIntoTheOption) {
  Value job = parse(one_sea);
  Diagnostics faults;
  Jobs::apply_overrides(
      job, {"sea.hs=80 s", "run.repeat = \"5 m\"", "drive.rate=7", "field.x={ from = 1 }"}, faults);
  const Value& hs = *job.find("sea")->items[0].find("wave")->items[0].find("hs");
  EXPECT_EQ(hs.span.source->name, "--set");
  EXPECT_EQ(hs.span.source->text, "sea.hs=80 s");
  EXPECT_EQ(JobFiles::covered(hs.span), "80 s");
  EXPECT_EQ(JobFiles::covered(job.find("run")->find("repeat")->span), "\"5 m\"");
  EXPECT_EQ(JobFiles::covered(job.find("drive")->find("rate")->span), "7");
  EXPECT_EQ(JobFiles::covered(job.find("drive")->members[0].key_span), "rate");
  const Value& x = *job.find("field")->find("x");
  EXPECT_EQ(JobFiles::covered(x.members[0].key_span), "from");
  EXPECT_EQ(JobFiles::covered(x.members[0].value.span), "1");
  EXPECT_EQ(x.members[0].value.span.source->text, "field.x={ from = 1 }");
  EXPECT_EQ(Jobs::show({"`hs` is a length, but \"80 s\" is a time", hs.span, "use m, mm"}),
            "error: `hs` is a length, but \"80 s\" is a time\n"
            " --> --set:1:8\n"
            "  |\n"
            "1 | sea.hs=80 s\n"
            "  |        ^^^^ use m, mm\n");
}

TEST(Overrides, OfManyCandidatesEightAreListed) {
  std::string text = "[[sea]]\n";
  std::string paths;
  for (int i = 1; i <= 9; ++i) {
    text += "[[sea.wave]]\nkind = \"single\"\na = " + std::to_string(i) + "\n";
    if (i <= 8) paths += (i > 1 ? ", " : "") + ("sea.wave." + std::to_string(i) + ".a");
  }
  const auto faults = faults_of(text, {"sea.a=3"});
  ASSERT_EQ(faults.size(), 1u);
  EXPECT_NE(faults[0].find("one of " + paths + ", ..."), std::string::npos) << faults[0];
}

TEST(Overrides, APointMayBeATableOrAListOfOtherValuesToo) {
  EXPECT_EQ(after("point = {x = 1}", {"point.x=2"}), "{point={x=2}}");
  EXPECT_EQ(after("point = [1, {x = 1}]", {"point.x=2"}), "{point=[1, {x=2}]}");
}

}  // namespace
