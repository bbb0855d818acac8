#include "jobs/read_toml.h"

#include <gtest/gtest.h>

#include <cmath>
#include <memory>
#include <string>

#include "jobs/diagnostic.h"

namespace {

using Jobs::Diagnostic;
using Jobs::SourceText;
using Jobs::Span;
using Jobs::Value;
using Kind = Jobs::Value::Kind;

Value read(const std::string& text) {
  return Jobs::read_toml(std::make_shared<SourceText>(SourceText{"job.toml", text}));
}

Diagnostic fault_of(const std::string& text) {
  try {
    read(text);
  } catch (const Jobs::BadJob& bad) {
    EXPECT_EQ(bad.faults.size(), 1U);
    return bad.faults.at(0);
  }
  return {"no fault", {}, ""};
}

// "line:column+length" and the text that the span covers.
std::string place(const Span& span) {
  std::string text = span.source->text;
  for (std::uint32_t line = 1; line < span.line; ++line) {
    text.erase(0, text.find('\n') + 1);
  }
  return std::to_string(span.line) + ":" + std::to_string(span.column) + " " +
         text.substr(span.column - 1, span.length);
}

std::string keys(const Value& table) {
  std::string list;
  for (const auto& member : table.members) {
    list += (list.empty() ? "" : " ") + member.key;
  }
  return list;
}

TEST(ReadToml, ValuesOfEachKind) {
  const Value job = read(
      "text = \"80 mm\"\n"
      "number = 3.3\n"
      "integer = -7\n"
      "hexadecimal = 0xff\n"
      "boolean = true\n"
      "array = [1, \"two\"]\n"
      "table = { x = 1 }\n"
      "date = 1979-05-27\n"
      "time = 07:32:00\n");
  EXPECT_EQ(job.kind, Kind::table);
  ASSERT_EQ(job.members.size(), 9U);
  EXPECT_EQ(job.find("text")->kind, Kind::text);
  EXPECT_EQ(job.find("text")->text, "80 mm");
  EXPECT_EQ(job.find("number")->kind, Kind::number);
  EXPECT_EQ(job.find("number")->number, 3.3);
  EXPECT_EQ(job.find("integer")->number, -7.0);
  EXPECT_EQ(job.find("hexadecimal")->number, 255.0);
  EXPECT_EQ(job.find("boolean")->kind, Kind::boolean);
  EXPECT_TRUE(job.find("boolean")->boolean);
  ASSERT_EQ(job.find("array")->kind, Kind::array);
  ASSERT_EQ(job.find("array")->items.size(), 2U);
  EXPECT_EQ(job.find("array")->items[0].number, 1.0);
  EXPECT_EQ(job.find("array")->items[1].text, "two");
  ASSERT_EQ(job.find("table")->kind, Kind::table);
  EXPECT_EQ(job.find("table")->find("x")->number, 1.0);
  EXPECT_EQ(job.find("date")->kind, Kind::other);
  EXPECT_EQ(job.find("time")->kind, Kind::other);
  EXPECT_EQ(job.find("nothing"), nullptr);
}

TEST(ReadToml, NumbersMayBeInfiniteOrNaN) {
  const Value job = read("i = -inf\nn = nan\n");
  EXPECT_EQ(job.find("i")->number, -INFINITY);
  EXPECT_TRUE(std::isnan(job.find("n")->number));
}

TEST(ReadToml, MembersAreInTheOrderOfTheText) {
  const Value job = read(
      "zulu = 1\n"
      "alpha = 2\n"
      "[run]\n"
      "repeat = 1\n"
      "dalrymple = 2\n"
      "[[sea]]\n"
      "name = 1\n"
      "holds = { y = 1, x = 2 }\n"
      "[drive]\n"
      "[a.b]\n"
      "d.e = 1\n"
      "c = 2\n");
  EXPECT_EQ(keys(job), "zulu alpha run sea drive a");
  EXPECT_EQ(keys(*job.find("run")), "repeat dalrymple");
  EXPECT_EQ(keys(job.find("sea")->items.at(0)), "name holds");
  EXPECT_EQ(keys(*job.find("sea")->items.at(0).find("holds")), "y x");
  EXPECT_EQ(keys(*job.find("a")->find("b")), "d c");
}

TEST(ReadToml, KeysAndValuesKnowTheirPlaces) {
  const Value job = read(
      "# comment\n"
      "\ttitle = \"Storm\" # comment\n"
      "\"quoted key\" = 12\n"
      "holds = { x = \"12 m\", t.s = true }\n");
  EXPECT_EQ(place(job.members[0].key_span), "2:2 title");
  EXPECT_EQ(place(job.members[0].value.span), "2:10 \"Storm\"");
  EXPECT_EQ(place(job.members[1].key_span), "3:1 \"quoted key\"");
  EXPECT_EQ(place(job.members[1].value.span), "3:16 12");
  EXPECT_EQ(place(job.members[2].value.span), "4:9 { x = \"12 m\", t.s = true }");
  const Value& holds = job.members[2].value;
  EXPECT_EQ(place(holds.members[0].key_span), "4:11 x");
  EXPECT_EQ(place(holds.members[0].value.span), "4:15 \"12 m\"");
  EXPECT_EQ(place(holds.members[1].key_span), "4:23 t");
  EXPECT_EQ(place(holds.members[1].value.members[0].value.span), "4:29 true");
  EXPECT_EQ(job.members[0].value.span.source->name, "job.toml");
}

TEST(ReadToml, TablesInBracketsHaveThePlaceOfTheirHead) {
  const Value job = read(
      "[ run ]\n"
      "a = 1\n"
      "[[sea]]\n"
      "  [[sea.wave]]\n"
      "  [[sea.wave]] # second\n"
      "[[sea]]\n");
  EXPECT_EQ(place(job.find("run")->span), "1:1 [ run ]");
  EXPECT_EQ(place(job.find("sea")->items.at(0).span), "3:1 [[sea]]");
  EXPECT_EQ(place(job.find("sea")->items.at(1).span), "6:1 [[sea]]");
  const Value* wave = job.find("sea")->items.at(0).find("wave");
  EXPECT_EQ(place(wave->items.at(1).span), "5:3 [[sea.wave]]");
}

TEST(ReadToml, ColumnsAreBytes) {
  const Value job = read("\"\xC3\xA9\" = [\"\xE2\x82\xAC\xF0\x9F\x98\x80\", 1]\n");
  EXPECT_EQ(job.members[0].key, "\xC3\xA9");
  EXPECT_EQ(place(job.members[0].key_span), "1:1 \"\xC3\xA9\"");
  EXPECT_EQ(place(job.members[0].value.items[0].span), "1:9 \"\xE2\x82\xAC\xF0\x9F\x98\x80\"");
  EXPECT_EQ(place(job.members[0].value.items[1].span), "1:20 1");
}

TEST(ReadToml, PlacesFarIntoALongLineOfSeveralByteCharacters) {
  std::string text = "a = [";
  for (int i = 0; i < 1000; ++i) {
    text += "\"\xC3\xA9\",";
  }
  const Value job = read(text + "7]");
  ASSERT_EQ(job.members[0].value.items.size(), 1001U);
  for (std::uint32_t i = 0; i < 1000; ++i) {
    ASSERT_EQ(job.members[0].value.items[i].span.column, 6 + 5 * i);
    ASSERT_EQ(job.members[0].value.items[i].span.length, 4U);
  }
  EXPECT_EQ(place(job.members[0].value.items[1000].span), "1:5006 7");
}

TEST(ReadToml, AValueOfSeveralLinesHasItsFirstLine) {
  const Value job = read("a = [1,\r\n  2]\nb = \"\"\"x\ny\"\"\"\n");
  EXPECT_EQ(place(job.find("a")->span), "1:5 [1,");
  EXPECT_EQ(place(job.find("a")->items[1].span), "2:3 2");
  EXPECT_EQ(place(job.find("b")->span), "3:5 \"\"\"x");
  EXPECT_EQ(job.find("b")->text, "x\ny");
}

TEST(ReadToml, ByteOrderMarkAndCarriageReturnsAreIgnored) {
  const Value job = read(
      "\xEF\xBB\xBF"
      "a = \"x\"\r\nb = 2\r\n");
  EXPECT_EQ(keys(job), "a b");
  EXPECT_EQ(place(job.members[0].key_span), "1:4 a");
  EXPECT_EQ(place(job.members[0].value.span), "1:8 \"x\"");
  EXPECT_EQ(place(job.members[1].value.span), "2:5 2");
}

TEST(ReadToml, AnEmptyTextIsAnEmptyTable) {
  for (const std::string text : {"", "\n", "# nothing", "\xEF\xBB\xBF"}) {
    const Value job = read(text);
    EXPECT_EQ(job.kind, Kind::table);
    EXPECT_TRUE(job.members.empty());
  }
}

TEST(ReadToml, AValueWithoutQuotationMarksIsShownWithThem) {
  struct Case {
    const char* text;
    const char* place;
    const char* value;
  };
  for (const Case& c : {Case{"a = 1\nhs = 80 mm # ok\n", "2:6 80 mm", "80 mm"},
                        Case{"hs =80mm", "1:5 80mm", "80mm"},
                        Case{"holds = { x = 12 m, y = 1 }", "1:15 12 m", "12 m"},
                        Case{"\xEF\xBB\xBFmerge = Null\r\n", "1:12 Null", "Null"},
                        Case{"site = basin.site\n", "1:8 basin.site", "basin.site"},
                        Case{"dalrymple = True\n", "1:13 True", "True"}}) {
    const Diagnostic fault = fault_of(c.text);
    EXPECT_EQ(fault.fault, "`" + std::string(c.value) + "` is not a TOML value");
    EXPECT_EQ(place(fault.span), c.place);
    EXPECT_EQ(fault.label, "write \"" + std::string(c.value) + "\"");
  }
}

TEST(ReadToml, OtherSyntaxErrorsHaveTheParsersReason) {
  Diagnostic fault = fault_of("[run\nrepeat = 1\n");
  EXPECT_EQ(fault.fault, "this is not TOML: expected ']', saw '\\n'");
  EXPECT_EQ(fault.span.line, 1U);
  EXPECT_EQ(fault.span.column, 5U);
  fault = fault_of("a = 1\n[]\n");
  EXPECT_EQ(fault.fault.rfind("this is not TOML: ", 0), 0U);
  EXPECT_EQ(fault.span.line, 2U);
  EXPECT_EQ(fault.span.column, 2U);
  // The error is after two characters of two bytes.
  fault = fault_of("\"\xC3\xA9\" = \"\xC3\xBC\" x\n");
  EXPECT_EQ(fault.span.column, 13U);
  EXPECT_EQ(fault_of("a = \n").span.column, 5U);
}

TEST(ReadToml, ARepeatedKeyIsNamed) {
  EXPECT_EQ(fault_of("hs = 1\nhs = 2\n").fault, "`hs` is given twice");
  EXPECT_EQ(fault_of("hs = 1\nhs = 2\n").span.line, 2U);
  EXPECT_EQ(fault_of("[run]\n[run]\n").fault, "`run` is given twice");
}

TEST(ReadToml, ATextThatEndsTooEarlyIsReportedAtItsEnd) {
  const Diagnostic fault = fault_of("a = [1,\n2");
  EXPECT_EQ(fault.fault, "the file ends in the middle of a value or table");
  EXPECT_EQ(fault.span.line, 2U);
  EXPECT_EQ(fault_of("a = \"\"\"x").fault, "the file ends in the middle of a value or table");
}

std::string repeated(const std::string& text, int count) {
  std::string result;
  for (int i = 0; i < count; ++i) {
    result += text;
  }
  return result;
}

TEST(ReadToml, AHundredLevelsAreRead) {
  const Value job = read("a = " + std::string(100, '[') + std::string(100, ']'));
  const Value* value = job.find("a");
  int levels = 1;
  for (; !value->items.empty(); value = &value->items[0]) {
    ++levels;
  }
  EXPECT_EQ(levels, 100);
  EXPECT_EQ(read(repeated("a.", 100) + "b = 1").members.size(), 1U);
}

TEST(ReadToml, DeeperNestingIsRefusedWhereItBegins) {
  const std::string message = "tables and arrays are nested too deeply";
  Diagnostic fault = fault_of("a = " + std::string(101, '[') + std::string(101, ']'));
  EXPECT_EQ(fault.fault, message);
  EXPECT_EQ(fault.label, "at most 100 levels");
  EXPECT_EQ(fault.span.column, 105U);
  EXPECT_EQ(fault_of("x = 1\n" + repeated("a . \"b\". ", 51) + "b = 1").span.line, 2U);
  EXPECT_EQ(fault_of("[" + repeated("a.", 100) + "b]").fault, message);
  EXPECT_EQ(fault_of("a = " + repeated("{ b.c = ", 51) + "1" + repeated("}", 51)).fault, message);
  // A fourth quotation mark is the last character of the string.
  EXPECT_EQ(fault_of("a = \"\"\"x\"\"\"\"\nb = " + std::string(101, '[')).fault, message);
  // These exhaust the stack of a parser without a bound.
  EXPECT_EQ(fault_of("a = " + std::string(8 << 20, '[')).fault, message);
  EXPECT_EQ(fault_of(repeated("a.", 4 << 20) + "b = 1").fault, message);
  EXPECT_EQ(fault_of("[" + repeated("'a'.", 2 << 20) + "b]").fault, message);
}

TEST(ReadToml, BracketsAndDotsInStringsAndCommentsAreNoLevels) {
  const std::string many = std::string(200, '[') + std::string(200, '.');
  EXPECT_EQ(read("a = \"" + many + "\\\"" + many + "\"\n# " + many + "\nb = 1").members.size(), 2U);
  EXPECT_EQ(read("a = '" + many + "\\'\nb = 1").members.size(), 2U);
  EXPECT_EQ(read("a = \"\"\"\"" + many + "\"\n" + many + "\"\"\"\"\"\nb = 1").members.size(), 2U);
  EXPECT_EQ(read("a = '''" + many + "\n" + many + "'''\nb = 1").members.size(), 2U);
  EXPECT_EQ(read("a = [" + repeated("1.5, ", 500) + "]").members.size(), 1U);
  EXPECT_EQ(read(repeated("[[a.b.c]]\n", 500)).members.size(), 1U);
}

TEST(ReadToml, TooManyValuesAreRefused) {
  const Value job = read("a = [" + repeated("1,", 99998) + "]");
  EXPECT_EQ(job.find("a")->items.size(), 99998U);
  const Diagnostic fault = fault_of("a = [" + repeated("1,", 99999) + "]");
  EXPECT_EQ(fault.fault, "the file has too many values");
  EXPECT_EQ(fault.label, "at most 100000; measured records belong in a CSV file");
  EXPECT_EQ(fault_of(repeated("[[a]]\n", 2 << 20)).fault, "the file has too many values");
}

TEST(ReadToml, SixteenMebibytesOfCommentsAreRead) {
  const Value job = read(repeated("# x\n", 4 << 20) + "a = 1");
  EXPECT_EQ(job.find("a")->span.line, (4U << 20) + 1);
  EXPECT_EQ(job.find("a")->span.column, 5U);
}

}  // namespace
