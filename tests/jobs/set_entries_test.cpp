#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "jobs/diagnostic.h"
#include "jobs/job_files.h"
#include "jobs/overrides.h"

namespace {

using JobFiles::after;
using JobFiles::dump;
using JobFiles::faults_of;
using JobFiles::lines_of;
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

TEST(SetEntries, SetEntriesMeanWhatOptionsMean) {
  EXPECT_EQ(after("[run]\nr = 1\n[[set]]\nkey = \"run.r\"\nvalue = \"2\"\n[[set]]\n"
                  "key = \"run.s\"\nvalue = \"80 mm\"\n[[set]]\nkey = \"run.t\"\nvalue = false\n",
                  {"run.s=9"}),
            "{run={r=2, s=9, t=false}, set=[{key=\"run.r\", value=\"2\"}, {key=\"run.s\", "
            "value=\"80 mm\"}, {key=\"run.t\", value=false}]}");
}

TEST(SetEntries, SetEntriesPointIntoTheFile) {
  Value job = parse("[run]\nr = 1\n[[set]]\nkey = \"run.r\"\nvalue = \"{ a = 2 }\"\n");
  Diagnostics faults;
  Jobs::apply_overrides(job, {}, faults);
  const Value& r = *job.find("run")->find("r");
  EXPECT_EQ(r.span.source->name, "storm.toml");
  EXPECT_EQ(r.span.line, 5U);
  EXPECT_EQ(JobFiles::covered(r.span), "\"{ a = 2 }\"");
  EXPECT_EQ(JobFiles::covered(r.members.at(0).key_span), "\"{ a = 2 }\"");
}

TEST(SetEntries, FaultsOfSetEntries) {
  EXPECT_EQ(faults_of("[run]\nr = 1\n[[set]]\nkey = \"runn.r\"\nvalue = 2\n[[set]]\nvalue = 3\n"
                      "[[set]]\nkey = 4\nvalue = 3\n[[set]]\nkey = \"run.r\"\nkeys = 1\n",
                      {}),
            (Lines{"`runn` is no part of a job | \"runn.r\" | did you mean `run`?",
                   "a [[set]] needs `key` and `value` | [[set]] | ",
                   "the `key` of a [[set]] must be a text | 4 | ",
                   "unknown key `keys` in a [[set]] | keys | a [[set]] has `key` and `value`",
                   "a [[set]] needs `key` and `value` | [[set]] | "}));
  for (const std::string set : {"set = 3\n", "set = []\n", "set = [{key = \"title\", value = 1}]\n",
                                "[set]\nkey = \"title\"\nvalue = 1\n"}) {
    const Lines faults = faults_of(set, {});
    ASSERT_EQ(faults.size(), 1U) << set;
    EXPECT_EQ(faults[0].rfind("`set` must be written as [[set]] tables | ", 0), 0U) << faults[0];
  }
}

// The trees after the overrides, without the entries themselves.
void expect_same(const std::string& text, const std::vector<std::string>& options) {
  Value with_options = parse(text);
  Diagnostics faults;
  Jobs::apply_overrides(with_options, options, faults);
  ASSERT_EQ(lines_of(faults), Lines());
  Value written = parse(Jobs::with_overrides(text, options));
  Jobs::apply_overrides(written, {}, faults);
  ASSERT_EQ(lines_of(faults), Lines());
  const auto without_set = [](Value& job) {
    std::erase_if(job.members, [](const Jobs::Member& member) { return member.key == "set"; });
    return dump(job);
  };
  EXPECT_EQ(without_set(written), without_set(with_options));
}

TEST(SetEntries, ATextWithItsOverridesIsTheSameJob) {
  const std::vector<std::string> options = {"sea.hs=100 mm",
                                            "sea.wave.tp = \"1.6 s\"",
                                            "sea.seed=8",
                                            "run.dalrymple=true",
                                            "title=A \"quoted\" \\ one",
                                            "site='C:\\x'",
                                            "run.a=tab\there",
                                            "run.b=\x01\x1B\x7F",
                                            "run.c=\xC3\xA9\xF0\x9F\x98\x80",
                                            "sea.'storm'.g=1",
                                            "sea.\"storm\".h=2",
                                            "field.x={ from = \"1 m\" }",
                                            "run.d=\"\"\"x\ny\"\"\"",
                                            "run.e=line\nline",
                                            "run.f=",
                                            "run.g=7 # 8",
                                            "run.h= \" blanks \" ",
                                            "run.i=\r"};
  expect_same(one_sea, options);
  expect_same(one_sea + "# no line end", options);
  expect_same(one_sea + "[[set]]\nkey = \"run.repeat\"\nvalue = \"1 s\"", {"run.repeat=2 s"});
}

TEST(SetEntries, EntriesAreAppendedInOrder) {
  EXPECT_EQ(Jobs::with_overrides("a = 1", {"sea.hs=\"100 mm\"", "run.x=\t"}),
            "a = 1\n"
            "\n"
            "[[set]]\n"
            "key = \"sea.hs\"\n"
            "value = \"\\\"100 mm\\\"\"\n"
            "\n"
            "[[set]]\n"
            "key = \"run.x\"\n"
            "value = \"\\u0009\"\n");
  EXPECT_EQ(Jobs::with_overrides("a = 1", {}), "a = 1");
  EXPECT_EQ(Jobs::with_overrides("", {"a=b"}), "\n[[set]]\nkey = \"a\"\nvalue = \"b\"\n");
}

TEST(SetEntries, AnyTextIsATomlString) {
  std::string text = "\"\\'";
  for (char c = 1; c < 0x20; ++c) {
    text += c;
  }
  text += "\x7F\xC2\x85\xF0\x9F\x98\x80";
  EXPECT_EQ(parse("a = " + Jobs::toml_string(text)).find("a")->text, text);
}

TEST(SetEntries, AListInTextPointsAtTheText) {
  Value job = parse("[run]\nr = 1\n[[set]]\nkey = \"run.r\"\nvalue = \"[1, {a = 2}]\"\n");
  Diagnostics faults;
  Jobs::apply_overrides(job, {}, faults);
  ASSERT_EQ(lines_of(faults), Lines());
  const Value& list = *job.find("run")->find("r");
  ASSERT_EQ(list.items.size(), 2u);
  EXPECT_EQ(JobFiles::covered(list.items[0].span), "\"[1, {a = 2}]\"");
}

TEST(SetEntries, AListOfTablesOnSeveralLinesIsNoEntry) {
  const Lines faults = faults_of("set = [\n  {key = \"title\", value = 1}\n]\n", {});
  ASSERT_EQ(faults.size(), 1U);
  EXPECT_EQ(faults[0].rfind("`set` must be written as [[set]] tables | ", 0), 0U) << faults[0];
}

TEST(SetEntries, AnOptionWithoutAValueIsNoEntry) {
  EXPECT_EQ(Jobs::with_overrides("a = 1", {"b"}), "a = 1");
}

}  // namespace
