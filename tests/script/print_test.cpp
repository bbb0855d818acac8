#include "script/print.h"

#include <gtest/gtest.h>

#include <cstdio>
#include <locale>
#include <sstream>

#include "reading.h"
#include "samples.h"
#include "support/checksum.h"
#include "support/comma_locale.h"
#include "support/temp_dir.h"
#include "support/thrown.h"
#include "test_tree.h"

using Script::Checksum;
using Script::List;
using Script::Variable;
using Script::VarType;
using Testing::checksum_of;
using Testing::TempDir;
using Testing::thrown;

namespace {

std::string written(const List& list, bool adjustable_only, unsigned indent) {
  std::ostringstream out;
  print(list, out, adjustable_only, indent);
  return out.str();
}

std::uint32_t checksum(const List& list, bool fixed_only) {
  Checksum sum;
  sum.add(list, fixed_only);
  return sum.value();
}

// One field of each kind, two of them adjustable.
struct Fields {
  Fields() {
    list.name("Tank");
    list.fixed("depth", depth);
    list.adjustable("gain", gain);
    list.fixed("count", count);
    list.adjustable("level", level);
    list.fixed("title", title);
    list.fixed("units", units);
  }
  double depth = 2.5;
  double gain = 0.1;
  std::int32_t count = -3;
  std::int32_t level = 4;
  std::string title = "Basin 2";
  TestTree::Units units;
  List list;
};

// A fixed and two adjustable fields, for a level below the root.
class Tuned : public Script::Declared {
 public:
  const char* class_name() const override { return "Tuned"; }
  void declare(List& list) override {
    list.fixed("size", size);
    list.adjustable("trim", trim);
    list.adjustable("zero", zero);
  }
  std::int32_t size = 1;
  std::int32_t trim = 2;
  std::int32_t zero = 3;
};

// An object and an array of two elements.
struct Below {
  Below() {
    list.name("Root");
    list.object("one", one);
    list.array("Many", many);
    one.build();
    many.build(8, 7);
  }
  Script::WrapObj<Tuned> one;
  Script::WrapAry<Tuned> many{Script::Rule{}};
  List list;
};

}  // namespace

TEST(TextForm, EachKindHasItsFormat) {
  Fields fields;
  fields.units.number = 7;
  const char* expected[] = {"depth = 2.5", "gain = 0.1",          "count = -3",
                            "level = 4",   "title = \"Basin 2\"", "units = imperial"};
  for (std::size_t i = 0; i < 6; ++i) EXPECT_EQ(text_form(fields.list.items()[i]), expected[i]);
  EXPECT_EQ(text_form(Variable(5)), "Int val = 5");
  EXPECT_EQ(text_form(Variable(std::string("x"))), "Sting val = x");
}

TEST(TextForm, AnUnknownMemberIsWrittenAsNotFound) {
  Fields fields;
  fields.units.number = 1;
  EXPECT_EQ(text_form(fields.list.items()[5]), "units = Not found");
}

TEST(TextForm, RealsHaveSixSignificantDigits) {
  const std::pair<double, const char*> rows[] = {
      {0.0, "0"},         {-0.0, "-0"},         {1.0, "1"},
      {100000, "100000"}, {1000000, "1e+06"},   {1234567, "1.23457e+06"},
      {0.0001, "0.0001"}, {0.00001, "1e-05"},   {3.14159265, "3.14159"},
      {1e300, "1e+300"},  {-2.5e-7, "-2.5e-07"}};
  for (const auto& [value, text] : rows) {
    double field = value;
    EXPECT_EQ(text_form(Variable(VarType::fixed_real, "r", &field)), std::string("r = ") + text);
    char c_format[64];
    std::snprintf(c_format, sizeof c_format, "%s = %g", "r", value);
    EXPECT_EQ(std::string("r = ") + text, c_format);
  }
}

TEST(TextForm, MarksAreWrittenAsPlainNumbers) {
  double unset = Script::UnsetReal;
  double none = Script::NoReal;
  std::int32_t integer = Script::UnsetInteger;
  EXPECT_EQ(text_form(Variable(VarType::fixed_real, "r", &unset)), "r = nan");
  EXPECT_EQ(text_form(Variable(VarType::fixed_real, "r", &none)), "r = nan");
  EXPECT_EQ(text_form(Variable(VarType::fixed_integer, "i", &integer)), "i = 2147483647");
  integer = Script::NoInteger;
  EXPECT_EQ(text_form(Variable(VarType::fixed_integer, "i", &integer)), "i = -2147483648");
}

TEST(TextForm, LongStringsAreWrittenWhole) {
  std::string text(1000, 'x');
  EXPECT_EQ(text_form(Variable(VarType::fixed_string, "s", &text)), "s = \"" + text + "\"");
}

TEST(TextForm, ADecimalCommaOfTheStreamsIsIgnored) {
  struct Comma : std::numpunct<char> {
    char do_decimal_point() const override { return ','; }
  };
  const std::locale before = std::locale::global(std::locale(std::locale(), new Comma));
  double field = 2.5;
  const std::string text = text_form(Variable(VarType::fixed_real, "r", &field));
  std::locale::global(before);
  EXPECT_EQ(text, "r = 2.5");
}

TEST(TextForm, ADecimalCommaOfTheHostIsIgnored) {
  const Testing::CommaLocale comma;
  if (!comma.active()) GTEST_SKIP() << "no locale with a decimal comma can be compiled here";
  char c_format[8];
  std::snprintf(c_format, sizeof c_format, "%g", 2.5);
  ASSERT_STREQ(c_format, "2,5");
  double field = 2.5;
  EXPECT_EQ(text_form(Variable(VarType::fixed_real, "r", &field)), "r = 2.5");
}

TEST(Print, FieldsAreWrittenInOrderOfDeclaration) {
  Fields fields;
  fields.units.number = 0;
  EXPECT_EQ(written(fields.list, false, 1),
            "\tdepth = 2.5;\n\tgain = 0.1;\n\tcount = -3;\n\tlevel = 4;\n\ttitle = \"Basin 2\";\n"
            "\tunits = metric;\n");
}

TEST(Print, MayWriteTheAdjustableFieldsOnly) {
  const Fields fields;
  EXPECT_EQ(written(fields.list, true, 2), "\t\tgain = 0.1;\n\t\tlevel = 4;\n");
}

TEST(Print, WithoutAnIndentThereAreNoNewlines) {
  const Fields fields;
  EXPECT_EQ(written(fields.list, true, 0), "gain = 0.1;level = 4;");
}

TEST(Print, AbsentObjectsAndEmptyArraysAreSkipped) {
  Script::WrapObj<TestTree::Box> box;
  Script::WrapAry<TestTree::Layer> layer({});
  List list;
  list.object("box", box);
  list.array("Layer", layer);
  EXPECT_EQ(written(list, false, 1), "");
  EXPECT_EQ(printable_count(list, false), 0u);
}

TEST(Print, MembersOfAnEnumerationAreNoFields) {
  TestTree::Units units;
  EXPECT_FALSE(units.members().items().empty());
  EXPECT_EQ(printable_count(units.members(), false), 0u);
}

TEST(Print, OnlyFieldsAndLiteralsHaveATextForm) {
  const TestTree::Samples samples;
  for (const std::size_t type : {0U, 2U, 4U, 13U, 14U}) {
    EXPECT_EQ(thrown([&] { text_form(samples.all[type]); }),
              "plain: No other types can be printed out")
        << type;
  }
}

TEST(Print, ABlockOfOneFieldIsOneLine) {
  Script::WrapObj<TestTree::Box> box;
  List list;
  list.object("box", box);
  box.build();
  box.get()->x = 1;
  EXPECT_EQ(written(list, false, 1), "\tbox {x = 1;}\n");
  EXPECT_EQ(written(list, false, 0), "box {x = 1;}");
  EXPECT_EQ(written(list, true, 1), "");
}

TEST(Print, ABlockOfSeveralFieldsHasALineForEach) {
  Script::WrapObj<TestTree::Box> box;
  List list;
  list.object("box", box);
  box.build();
  box.get()->x = 1;
  box.get()->box.build();
  box.get()->box.get()->x = 2;
  EXPECT_EQ(printable_count(list, false), 2u);
  EXPECT_EQ(written(list, false, 0), "box {\n\tx = 1;\n\tbox {x = 2;}\n}\n");
  EXPECT_EQ(written(list, false, 2), "\t\tbox {\n\t\t\tx = 1;\n\t\t\tbox {x = 2;}\n\t\t}\n");
}

TEST(Print, AnArrayIsDeclaredUnlessOnlyAdjustableFieldsAreWritten) {
  Script::WrapAry<TestTree::Section> section({});
  List list;
  list.array("Section", section);
  section.build(3, 2);
  section[0].width = 1;
  section[0].label = "a";
  section[1].width = 2;
  section[1].label = "b";
  EXPECT_EQ(written(list, false, 1),
            "\tSection[3..2];\n"
            "\tSection[2] {\n\t\twidth = 1;\n\t\tlabel = \"a\";\n\t}\n"
            "\tSection[3] {\n\t\twidth = 2;\n\t\tlabel = \"b\";\n\t}\n");
  EXPECT_EQ(written(list, true, 1), "");
  EXPECT_EQ(printable_count(list, false), 4u);
  EXPECT_EQ(printable_count(list, true), 0u);
}

TEST(Print, AnElementOfOneFieldIsOneLine) {
  Script::WrapAry<TestTree::Layer> layer({});
  List list;
  list.array("Layer", layer);
  layer.build(0, -1);
  layer[0].depth = 1;
  layer[1].depth = 2;
  EXPECT_EQ(written(list, false, 1),
            "\tLayer[0..-1];\n\tLayer[-1] {depth = 1;}\n\tLayer[0] {depth = 2;}\n");
  EXPECT_EQ(written(list, false, 0), "Layer[0..-1];\nLayer[-1] {depth = 1;}Layer[0] {depth = 2;}");
}

TEST(Print, MayWriteTheAdjustableFieldsOnlyAtEveryLevel) {
  const Below below;
  const std::string tuning = "\t\ttrim = 2;\n\t\tzero = 3;\n\t}\n";
  EXPECT_EQ(printable_count(below.list, true), 6u);
  EXPECT_EQ(written(below.list, true, 1),
            "\tone {\n" + tuning + "\tMany[7] {\n" + tuning + "\tMany[8] {\n" + tuning);
  const std::string all = "\t\tsize = 1;\n" + tuning;
  EXPECT_EQ(printable_count(below.list, false), 9u);
  EXPECT_EQ(written(below.list, false, 1),
            "\tone {\n" + all + "\tMany[8..7];\n\tMany[7] {\n" + all + "\tMany[8] {\n" + all);
}

TEST(Print, OtherTypesAreRefused) {
  List members;
  members.member("a", 1);
  EXPECT_EQ(thrown([&] { written(members, false, 1); }),
            "plain: No other types can be printed out");
  List literal;
  literal.items().emplace_back(1);
  EXPECT_EQ(thrown([&] { written(literal, true, 1); }), "plain: No other types can be printed out");
}

TEST(Print, TheOutputIsAScriptThatReadsBack) {
  const TempDir dir;
  std::ostringstream log_text;
  Script::SimpleLog log(log_text);
  Script::WrapObj<TestTree::Tank> from;
  from.build();
  TestTree::Tank& tank = *from.get();
  tank.depth = -2.5;
  tank.gain = 1e-9;
  tank.count = -7;
  tank.level = 0;
  tank.title = "a # b";
  tank.note = "";
  tank.units.number = 7;
  tank.shown.number = -3;
  tank.box.build();
  tank.box.get()->x = 1;
  tank.box.get()->box.build();
  tank.box.get()->box.get()->x = 2;
  tank.section.build(3, 2);
  tank.section[0].width = 1.25;
  tank.section[1].layer.build(1, 0);
  tank.section[1].layer[1].depth = 4;
  const std::string script = "Tank {\n" + written(from.list(), false, 1) + "}\n";

  Script::Serialise<TestTree::Tank> reader("Tank");
  reader.attach_log(log);
  EXPECT_EQ(read_files(reader, log_text, dir.write("main.txt", script)).failure,
            Testing::nothing_thrown);
  EXPECT_EQ(reader.object()->dump(), tank.dump());
}

TEST(Checksum, EachCharacterIsShiftedByItsPosition) {
  Checksum sum;
  sum.add_text("a");
  EXPECT_EQ(sum.value(), 97u);
  sum.add_text("b");
  EXPECT_EQ(sum.value(), 97u + 2u * 98u);
  sum.add_text("");
  EXPECT_EQ(sum.value(), 97u + 2u * 98u);
}

TEST(Checksum, TheShiftRestartsAfter24Characters) {
  Checksum sum;
  sum.add_text(std::string(24, '\x01').c_str());
  EXPECT_EQ(sum.value(), (1u << 24) - 1);
  sum.add_text("\x01");
  EXPECT_EQ(sum.value(), 1u << 24);
}

TEST(Checksum, CharactersAbove127AreNegative) {
  Checksum sum;
  sum.add_text("\xff");
  EXPECT_EQ(sum.value(), 0xFFFFFFFFu);
  sum.add_text("\x80");
  EXPECT_EQ(sum.value(), 0xFFFFFFFFu - 256u);
}

TEST(Checksum, TheSumWrapsAt32Bits) {
  const std::string text(4000, 'z');
  Checksum sum;
  sum.add_text(text.c_str());
  EXPECT_EQ(sum.value(), checksum_of(text));
}

TEST(Checksum, CoversTheNameAndTheField) {
  std::int32_t a = 5;
  List list;
  list.name("Name");
  list.fixed("a", a);
  EXPECT_EQ(checksum(list, true), checksum_of("Namea = 5"));
  EXPECT_EQ(checksum(list, false), checksum_of("Namea = 5"));
}

TEST(Checksum, MayCoverTheFixedFieldsOnly) {
  Fields fields;
  fields.units.number = 7;
  EXPECT_EQ(checksum(fields.list, true),
            checksum_of("Tankdepth = 2.5count = -3title = \"Basin 2\"units = imperial"));
  EXPECT_EQ(checksum(fields.list, false),
            checksum_of(
                "Tankdepth = 2.5gain = 0.1count = -3level = 4title = \"Basin 2\"units = imperial"));
}

TEST(Checksum, TuningChangesOnlyTheSumOfAllFields) {
  Fields fields;
  const std::uint32_t fixed_before = checksum(fields.list, true);
  const std::uint32_t all_before = checksum(fields.list, false);
  fields.gain = 0.2;
  EXPECT_EQ(checksum(fields.list, true), fixed_before);
  EXPECT_NE(checksum(fields.list, false), all_before);
}

TEST(Checksum, RealsCountWithSixDigits) {
  Fields fields;
  fields.depth = 1.2345612;
  const std::uint32_t before = checksum(fields.list, true);
  fields.depth = 1.2345623;
  EXPECT_EQ(checksum(fields.list, true), before);
  fields.depth = 1.23458;
  EXPECT_NE(checksum(fields.list, true), before);
}

TEST(Checksum, ObjectsAndElementsAddTheirClassNamesAndFields) {
  Script::WrapObj<TestTree::Box> box;
  Script::WrapAry<TestTree::Layer> layer({});
  List list;
  list.name("Root");
  list.object("box", box);
  list.array("Layer", layer);
  EXPECT_EQ(checksum(list, true), checksum_of("Root"));
  box.build();
  box.get()->x = 1;
  layer.build(5, 4);
  layer[0].depth = 2;
  layer[1].depth = 3;
  EXPECT_EQ(checksum(list, true), checksum_of("RootBoxx = 1Layerdepth = 2Layerdepth = 3"));
}

TEST(Checksum, MayCoverTheFixedFieldsOnlyAtEveryLevel) {
  const Below below;
  EXPECT_EQ(checksum(below.list, true), checksum_of("RootTunedsize = 1Tunedsize = 1Tunedsize = 1"));
  const std::string all = "Tunedsize = 1trim = 2zero = 3";
  EXPECT_EQ(checksum(below.list, false), checksum_of("Root" + all + all + all));
}

TEST(Checksum, OtherTypesAreRefused) {
  List members;
  members.name("Members");
  members.member("a", 1);
  EXPECT_EQ(thrown([&] { checksum(members, true); }),
            "plain: No other types can form part of a checksum");
}
