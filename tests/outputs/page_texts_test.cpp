// Texts on pages.
#include "outputs/page_texts.h"

#include <gtest/gtest.h>

#include "outputs/made_page.h"
#include "outputs/made_run.h"
#include "outputs/page_shell.h"

namespace Outputs {
namespace {

using Testing::Json;

std::size_t count(const std::string& text, const std::string& part) {
  std::size_t found = 0;
  for (std::size_t at = text.find(part); at != text.npos; at = text.find(part, at + 1)) ++found;
  return found;
}

TEST(PageShell, HasEachMarkOnce) {
  ASSERT_EQ(embedded_report().size(), 1U);
  const std::string shell(embedded_report().front().text);
  EXPECT_EQ(count(shell, "{{title}}"), 1U);
  EXPECT_EQ(count(shell, "{{data}}"), 1U);
  EXPECT_LT(shell.find("{{title}}"), shell.find("{{data}}"));
}

TEST(PageShell, KeepsTheLicenceOfTheChartLibrary) {
  const std::string shell(embedded_report().front().text);
  const std::size_t licence = shell.find("/*! uplot 1.");
  ASSERT_NE(licence, shell.npos);
  EXPECT_NE(shell.find("The MIT License (MIT)", licence), shell.npos);
  EXPECT_NE(shell.find("Copyright (c) 2022 Leon Sorokin", licence), shell.npos);
  EXPECT_NE(shell.find("Permission is hereby granted, free of charge", licence), shell.npos);
}

TEST(PageJson, HoldsNothingThatEndsItsElement) {
  EXPECT_EQ(json_for_html("[\"</script><!--\"]"), "[\"\\u003c/script>\\u003c!--\"]");
  EXPECT_EQ(json_for_html("\xE2\x80\xA8\xE2\x80\xA9\xE2\x80\xA6\xE2\x80"),
            "\\u2028\\u2029\xE2\x80\xA6\xE2\x80");
}

TEST(PageShell, ShowsATitleAsItIs) {
  const std::string page = filled_shell("a < b > c & \"d\" 'e'", "{}");
  EXPECT_EQ(count(page, "<title>a &lt; b &gt; c &amp; &quot;d&quot; &#39;e&#39;"), 1U);
}

TEST(PageTexts, CannotAddAScript) {
  const Testing::TempDir dir;
  const std::string evil = "</script><script>alert('&')</script><!--";
  std::ifstream in(Testing::examples + "flume.site");
  std::ostringstream text;
  text << in.rdbuf();
  std::string site = text.str();
  const std::size_t at = site.find('"', site.find("site_name"));
  ASSERT_NE(at, site.npos);
  site.replace(at + 1, site.find('"', at + 1) - at - 1, evil);
  dir.write("evil.site", site);
  std::filesystem::copy(Testing::examples + "common", dir.file("common"));
  Testing::MadeRun made(dir.write(
      "evil.toml", "# " + evil + "\ntitle = \"" + evil +
                       "\"\nsite = \"evil.site\"\n[run]\nrepeat = \"60 s\"\n" +
                       "[[sea]]\nname = \"" + evil + "\"\n[[sea.wave]]\nkind = \"single\"\n" +
                       "f = \"0.8 Hz\"\na = \"25 mm\"\nangle = \"0 deg\"\nphase = \"0 deg\"\n" +
                       "[[point]]\nname = \"" + evil + "\"\nx = \"3 m\"\ny = \"0 m\"\n"));
  made.write(dir.file("x.out"));
  dir.write("x.out/log.txt", evil + "\n");
  const Json data = Testing::made_page(dir.file("x.out"));
  const std::string page = dir.contents("x.out/report.html");
  const std::string shell(embedded_report().front().text);
  for (const char* part : {"<script", "</script", "<!--", "<"}) {
    EXPECT_EQ(count(page, part), count(shell, part)) << part;
  }
  EXPECT_NE(page.find("<title>&lt;/script&gt;&lt;script&gt;alert(&#39;&amp;&#39;)"), page.npos);
  EXPECT_EQ(data.at("summary").at("title"), evil);
  EXPECT_EQ(data.at("summary").at("site").at("name"), evil);
  EXPECT_EQ(data.at("summary").at("seas").at(0).at("name"), evil);
  EXPECT_EQ(data.at("summary").at("points").at(0).at("name"), evil);
  EXPECT_EQ(data.at("log"), evil + "\n");
  EXPECT_EQ(data.at("job"), dir.contents("x.out/job.toml"));
}

TEST(PageTexts, MayHoldBytesThatAreNoText) {
  const Testing::TempDir dir;
  dir.write("summary.json", Testing::bare_summary().dump());
  dir.write("log.txt", std::string("a\xff\x00\x1b[31m", 8));
  EXPECT_EQ(Testing::made_page(dir.path()).at("log"), std::string("a\xEF\xBF\xBD\x00\x1b[31m", 10));
}

TEST(PageTexts, LoseTheMiddleOfALongLog) {
  std::string log;
  for (int i = 0; i < 1000; ++i) log += "line " + std::to_string(i) + "\n";
  const std::string cut = without_middle(log, 500);
  EXPECT_EQ(cut.substr(0, 14), "line 0\nline 1\n");
  EXPECT_EQ(cut.substr(cut.size() - 9), "line 999\n");
  EXPECT_LT(cut.size(), 600U);
  const auto lines = count(cut, "\n") - 1;  // without the one that says so
  EXPECT_NE(cut.find("[" + std::to_string(1000 - lines) + " lines are left out here"), cut.npos)
      << cut;
  EXPECT_EQ(without_middle(log, log.size()), log);
  EXPECT_LT(without_middle(std::string(100'000, 'x'), 500).size(), 600U);
}

// Of 500 characters, 250 remain at each end. A line of more than half of them is cut.
TEST(PageTexts, LoseTheMiddleOfLongLines) {
  const std::string log = "first\n" + std::string(1000, 'x') + "\nlast\n";
  const std::string cut = without_middle(log, 500);
  EXPECT_EQ(cut, "first\n" + std::string(244, 'x') +
                     "\n[0 lines are left out here; log.txt has them]" + std::string(244, 'x') +
                     "\nlast\n");
}

}  // namespace
}  // namespace Outputs
