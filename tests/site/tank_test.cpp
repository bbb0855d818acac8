// The checks of a tank, its walls, constants and tunable values.
#include "site/tank.h"

#include <gtest/gtest.h>

#include "site_script.h"
#include "support/thrown.h"
#include "support/thrown_item.h"

namespace {

using Common::Tank;
using Testing::nothing_thrown;
using Testing::thrown_item;

std::string three_sections(const std::string& first, const std::string& second,
                           const std::string& third) {
  return site_with_sections("section[3..1] { offset = Relative; }\nsection[1] {" + first +
                            "}\nsection[2] {" + second + "}\nsection[3] {" + third + "}\n");
}

// The line of the log for a refused script, without the path of the tank and the level.
std::string refusal(const std::string& script) {
  Load site(script);
  const std::string line = site.caught_item();
  const std::string lead = "context::tank::Error::";
  EXPECT_EQ(line.substr(0, lead.size()), lead);
  return line.substr(std::min(lead.size(), line.size()));
}

TEST(TankChecks, OneSectionIsRefused) {
  EXPECT_EQ(
      refusal(site_with_sections("section[1..1] { x = 0; offset = Relative; depth = \"1\"; }")),
      "Insufficient sections 1 in context\n");
}

TEST(TankChecks, ADepthInTheLastSectionIsRefused) {
  EXPECT_EQ(refusal(site_with("x = 20;", "x = 20; depth = \"0.5 @m\";")),
            "Depth should not be specified for last section but is 0.5 @m\n");
}

TEST(TankChecks, TheLastDepthMayBeWrittenAsNull) {
  Load site(site_with("x = 20;", "x = 20; depth = \"NULL\";"));
  EXPECT_TRUE(site.ok()) << site.failure;
  EXPECT_EQ(refusal(site_with("x = 20;", "x = 20; depth = \" NULL\";")),
            "Depth should not be specified for last section but is  NULL\n");
}

TEST(TankChecks, TheReferenceMustBeInTheTank) {
  EXPECT_EQ(refusal(site_with("reference_x = 1.0;", "reference_x = 20.5;")),
            "Tank limits - 0:20 does not include reference postion 20.5\n");
  EXPECT_EQ(refusal(site_with("reference_x = 1.0;", "reference_x = -0.25;")),
            "Tank limits - 0:20 does not include reference postion -0.25\n");
  EXPECT_TRUE(Load(site_with("reference_x = 1.0;", "reference_x = 0;")).ok());
  EXPECT_TRUE(Load(site_with("reference_x = 1.0;", "reference_x = 20;")).ok());
}

TEST(TankChecks, TheReferenceIsTheOriginByDefault) {
  EXPECT_EQ(refusal(changed(site_with("reference_x = 1.0;", ""), "x = 0;", "x = 5.5;")),
            "Tank limits - 5.5:20 does not include reference postion 0\n");
}

TEST(TankChecks, CrosswiseLimitsMustBeInOrder) {
  EXPECT_EQ(refusal(site_with("max_y = 4.5;", "max_y = -1.75;")),
            "Max Y -1.75 is less than Min Y -1.5\n");
  EXPECT_TRUE(Load(site_with("max_y = 4.5;", "max_y = -1.5;")).ok());
}

TEST(TankChecks, OtherSectionsMustHaveADepth) {
  EXPECT_EQ(refusal(three_sections("x = 0;", "x = 8; depth = \"1\";", "x = 20;")),
            "Section[1] depth undefined\n");
  EXPECT_EQ(refusal(three_sections("x = 0; depth = \"1\";", "x = 8; depth = \"NULL\";", "x = 20;")),
            "Section[2] depth undefined\n");
}

TEST(TankChecks, SectionsMustBeInOrder) {
  EXPECT_EQ(refusal(site_with_sections(R"(section[4..1] { offset = Relative; depth = "1"; }
      section[1] { x = 0; } section[2] { x = 8.5; } section[3] { x = 8.25; }
      section[4] { x = 20; depth = "NULL"; })")),
            "Section[3] 8.25 in tank not sequential\n");
}

TEST(TankChecks, SectionsMustNotPassTheLast) {
  EXPECT_EQ(
      refusal(three_sections("x = 0; depth = \"1\";", "x = 20.75; depth = \"1\";", "x = 20;")),
      "Section[2] 20.75  out of range\n");
}

TEST(TankChecks, AFirstSectionBeyondTheLastFailsAtTheReference) {
  EXPECT_EQ(refusal(site_with("x = 0;", "x = 30;")),
            "Tank limits - 30:20 does not include reference postion 1\n");
}

TEST(TankChecks, AFirstSectionBeyondTheLastIsOutOfRangeWithoutAReference) {
  EXPECT_EQ(
      refusal(changed(site_with("x = 0;", "x = 30;"), "reference_x = 1.0;", "reference_x = $;")),
      "Section[1] 30  out of range\n");
}

TEST(TankChecks, SectionsAreNumberedAsInTheScript) {
  EXPECT_EQ(refusal(site_with_sections(R"(section[9..7] { offset = Relative; }
      section[7] { x = 0; depth = "1"; } section[8] { x = 5; } section[9] { x = 20; })")),
            "Section[8] depth undefined\n");
  EXPECT_EQ(refusal(site_with_sections(R"(section[0..-1] { offset = Relative; }
      section[0] { x = 20; } section[(-1)] { x = 0; })")),
            "Section[-1] depth undefined\n");
}

// Each script also has the problems that the following ones test.
TEST(TankChecks, OnlyTheFirstProblemIsReported) {
  const std::string bad_y = site_with("max_y = 4.5;", "max_y = -7;");
  const std::string bad_reference = changed(bad_y, "reference_x = 1.0;", "reference_x = 99;");
  const std::string no_first_depth = changed(bad_reference, "depth = \"0.8\";", "");
  EXPECT_EQ(refusal(changed(no_first_depth, "x = 20;", "x = 20; depth = \"1\";")),
            "Depth should not be specified for last section but is 1\n");
  EXPECT_EQ(refusal(no_first_depth), "Tank limits - 0:20 does not include reference postion 99\n");
  EXPECT_EQ(refusal(changed(bad_y, "depth = \"0.8\";", "")), "Max Y -7 is less than Min Y -1.5\n");
  EXPECT_EQ(refusal(three_sections("x = 0; depth = \"1\";", "x = -3;", "x = 20;")),
            "Section[2] depth undefined\n");
}

TEST(TankChecks, ItemsHaveTheHeadingCreate) {
  Load site(full_script());
  Tank& tank = *site.context().tank.get();
  tank.section[0].depth = "NULL";
  EXPECT_EQ(thrown_item([&] { tank.create(); }),
            "item: Create: context::tank::Error::Section[1] depth undefined");
}

TEST(TankChecks, TwoSectionsMayBeAtOnePosition) {
  Load site(three_sections("x = 0; depth = \"1\";", "x = 0; depth = \"0.5\";", "x = 20;"));
  EXPECT_TRUE(site.ok()) << site.failure << site.log_text.str();
  Load end(three_sections("x = 0; depth = \"1\";", "x = 20; depth = \"0.5\";", "x = 20;"));
  EXPECT_TRUE(end.ok()) << end.failure << end.log_text.str();
}

TEST(TankChecks, ADepthThatIsNotAFormulaIsRefused) {
  Load site(site_with("depth = \"0.8\";", "depth = \"0.8 +\";"));
  EXPECT_EQ(site.failure, site.path + "::Error while parsing expression ::0.8 +");
  Load units(site_with("depth = \"0.8\";", "depth = \"0.8 @fathom\";"));
  EXPECT_EQ(units.failure, units.path + "::Unknown units - fathom");
}

TEST(TankChecks, FormulasAreParsedBeforeTheTankIsChecked) {
  Load site(
      changed(site_with("max_y = 4.5;", "max_y = -7;"), "depth = \"0.8\";", "depth = \"(1\";"));
  EXPECT_EQ(site.failure, site.path + "::Error while parsing expression ::(1");
}

TEST(Tank, ArraysRefuseIndicesOutOfRange) {
  Load site(full_script());
  Common::Context& context = site.context();
  const std::string refused = "item: General: Error::Array element 5 is out of bounds";
  // The message of an array has no path.
  const Tank& tank = *context.tank.get();
  EXPECT_EQ(thrown_item([&] { tank.section[5]; }), refused);
  EXPECT_EQ(thrown_item([&] { tank.param[5]; }), refused);
  EXPECT_EQ(thrown_item([&] { context.wavemaker_bank[5]; }), refused);
  EXPECT_EQ(thrown_item([&] { context.wavemaker_bank[0].pad_pos[5]; }), refused);
  EXPECT_EQ(thrown_item([&] { context.wavemaker_bank[0].machine().constant[5]; }), refused);
  EXPECT_EQ(thrown_item([&] { tank.section[2]; }),
            "item: General: Error::Array element 2 is out of bounds");
  EXPECT_EQ(thrown_item([&] { tank.section[1]; }), nothing_thrown);
}

TEST(Tank, WallsFollowTheGeometry) {
  struct Row {
    const char* geometry;
    bool walls;
    double width;
    double y_ref;
  };
  const Row rows[] = {
      {"NoSides", false, 0, 0},    {"PlusSide", true, 12, 4.5},     {"MinusSide", true, 12, -1.5},
      {"BothSides", true, 6, 1.5}, {"TwoDimensional", false, 0, 0},
  };
  for (const Row& row : rows) {
    Load site(site_with("BothSides", row.geometry));
    ASSERT_TRUE(site.ok()) << site.failure;
    site.context().make_ready();
    const Maths::TankConfig& config = site.context().tank_config();
    EXPECT_EQ(config.has_walls, row.walls) << row.geometry;
    EXPECT_DOUBLE_EQ(config.width, row.width) << row.geometry;
    EXPECT_DOUBLE_EQ(config.y_ref, row.y_ref) << row.geometry;
    Base::Params out;
    site.context().get_consts(out);
    EXPECT_EQ(out.get_enum("geometry", "Geometry"), static_cast<unsigned>(&row - rows));
  }
}

TEST(Tank, UnknownEnumerationMembersAreRefused) {
  Load site(full_script());
  Tank& tank = *site.context().tank.get();
  Maths::TankConfig config;
  for (std::int32_t number : {5, -1, Script::UnsetInteger}) {
    tank.geometry.number = number;
    Base::Params out;
    EXPECT_EQ(thrown_item([&] { tank.get_consts(out); }), "Unexpected type for Tank::Geometry");
    EXPECT_TRUE(out.contains("min_y"));
    EXPECT_EQ(thrown_item([&] { tank.make_config(config); }), "Unexpected type in Geometry");
  }
  for (std::int32_t number : {4, -1, Script::UnsetInteger}) {
    tank.units.number = number;
    Base::Params out;
    EXPECT_EQ(thrown_item([&] { tank.get_consts(out); }), "Unexpected angle units");
    EXPECT_TRUE(out.entries().empty());
  }
}

TEST(Tank, AFailedConfigurationLeavesTheSiteNotReady) {
  Load site(full_script());
  site.context().tank.get()->geometry.number = 7;
  EXPECT_EQ(thrown_item([&] { site.context().make_ready(); }), "Unexpected type in Geometry");
  EXPECT_FALSE(site.context().ready());
}

// A wave gets its phase from the crosswise reference. A single wall needs the limit on the other
// side for cross-tank modes only.
TEST(Tank, CrosswiseLimitsWithoutAValueAreRefusedIfTheyAreTheReference) {
  struct Row {
    const char* geometry;
    const char* key;
    bool refused;
  };
  const Row rows[] = {
      {"NoSides", "max_y = 4.5;", false},   {"NoSides", "min_y = -1.5;", false},
      {"PlusSide", "max_y = 4.5;", true},   {"PlusSide", "min_y = -1.5;", false},
      {"MinusSide", "max_y = 4.5;", false}, {"MinusSide", "min_y = -1.5;", true},
      {"BothSides", "max_y = 4.5;", true},  {"BothSides", "min_y = -1.5;", true},
  };
  for (const Row& row : rows) {
    Load site(
        changed(site_with("BothSides", row.geometry), row.key, std::string(row.key, 5) + " = $;"));
    ASSERT_TRUE(site.ok()) << site.failure;
    EXPECT_EQ(thrown_item([&] { site.context().make_ready(); }),
              row.refused ? "Tank::max_y or min_y is not a number" : nothing_thrown)
        << row.geometry << " " << row.key;
  }
}

const char* two_params = R"(param[2..1];
    param[1] { name = "b"; value = 3; max = 4; min = 2; error = 0.1; units = "mm"; }
    param[2] { name = "a"; value = 0.5; max = 1; min = 0; error = 0.1; units = "deg"; }
  }
  limits {)";

std::string with_two_params() {
  const std::string text = full_script();
  return text.substr(0, text.find("param[1..1]")) + two_params +
         text.substr(text.find("limits {") + 8);
}

TEST(TunableValues, AreReportedInTheirUnits) {
  Load site(with_two_params());
  ASSERT_TRUE(site.ok()) << site.failure;
  Base::Params out;
  site.context().tank.get()->query(out);
  EXPECT_EQ(out.entries().size(), 2u);
  EXPECT_EQ(out.at("b").value, 3.0);
  EXPECT_EQ(Base::units_text(out.at("b").units), "mm");
  EXPECT_EQ(out.at("a").value, 0.5);
  EXPECT_EQ(Base::units_text(out.at("a").units), "deg");
  EXPECT_EQ(thrown_item([&] { site.context().tank.get()->query(out); }),
            "\"b\"::Duplicate parameter:");
}

TEST(TunableValues, AreSetFromAnyCompatibleUnits) {
  Load site(with_two_params());
  Tank& tank = *site.context().tank.get();
  Base::Params in;
  in.insert("b", 0.25, "m");
  in.insert("a", 1.0, "rad");
  in.insert("other", 1.0, "s");
  tank.set(in);
  EXPECT_DOUBLE_EQ(tank.param[0].value, 250.0);
  EXPECT_DOUBLE_EQ(tank.param[1].value, 1 / 0.0174533);
  Base::Params out;
  tank.query(out);
  EXPECT_DOUBLE_EQ(out.get("b", "cm"), 25.0);
}

TEST(TunableValues, AreStoredEvenOutsideTheirLimits) {
  Load site(with_two_params());
  Tank& tank = *site.context().tank.get();
  Base::Params in;
  in.insert("b", 400, "mm");
  in.insert("a", -1.0, "deg");
  tank.set(in);
  EXPECT_DOUBLE_EQ(tank.param[0].value, 400.0);
  EXPECT_DOUBLE_EQ(tank.param[1].value, -1.0);
}

TEST(TunableValues, MustAllBeGiven) {
  Load site(with_two_params());
  Tank& tank = *site.context().tank.get();
  Base::Params in;
  EXPECT_EQ(thrown_item([&] { tank.set(in); }), "b::Not found");
  in.insert("b", 1.0, "s");
  EXPECT_EQ(thrown_item([&] { tank.set(in); }), "Unable to convert from \"s\" to \"mm\"");
  EXPECT_EQ(tank.param[0].value, 3.0);
}

TEST(TunableValues, DoNotChangeLimitsOrConfiguration) {
  Load site(with_two_params());
  Common::Context& context = site.context();
  context.make_ready();
  Base::Params in;
  in.insert("b", 2.5, "mm");
  in.insert("a", 0.25, "deg");
  context.tank.get()->set(in);
  context.clear_ready();
  EXPECT_FALSE(context.ready());
  context.make_ready();
  EXPECT_TRUE(context.ready());
  EXPECT_DOUBLE_EQ(context.get(Common::Limit::max_x), 20.0);
  EXPECT_EQ(context.tank_config().profile.size(), 2u);
  Base::Params consts;
  context.get_consts(consts);
  EXPECT_EQ(consts.at("max_b").value, 4.0);
  EXPECT_EQ(consts.at("min_b").value, 2.0);
  EXPECT_EQ(consts.at("max_a").value, 1.0);
}

}  // namespace
