#include "script/walks.h"

#include <gtest/gtest.h>

#include <sstream>

#include "script/wrap.h"
#include "support/thrown.h"
#include "test_tree.h"

using Script::List;
using Script::SizeRule;
using Testing::nothing_thrown;
using Testing::thrown;

namespace {

std::vector<std::string>& finished() {
  static std::vector<std::string> paths;
  return paths;
}

// Records its path when it is created.
class Leaf : public Script::Declared {
 public:
  const char* class_name() const override { return "Leaf"; }
  void declare(List& list) override { list.fixed("depth", depth); }
  void create() override { finished().push_back(path()); }
  double depth = Script::UnsetReal;
};

class Tank : public Script::Declared {
 public:
  const char* class_name() const override { return "Tank"; }
  void declare(List& list) override {
    list.fixed("n", n);
    list.array("Section", sections);
    list.object("lid", lid);
    list.object("spare", spare);
  }
  void create() override { finished().push_back(path()); }
  std::int32_t n = Script::UnsetInteger;
  Script::WrapAry<Leaf> sections{{SizeRule::at_least, 1, 0, 0}};
  Script::WrapObj<Leaf> lid;
  Script::WrapObj<Leaf> spare{{SizeRule::at_most, 1, 0, 0}};
};

struct Tree {
  Tree() { root.object("Tank", tank); }
  Script::WrapObj<Tank> tank;
  List root;
};

class Owner : public Script::Master {
 public:
  void save() override {}
};

std::string report_of(const List& list, bool& complete) {
  std::ostringstream report;
  complete = verify(list, report);
  return report.str();
}

class NullLog : public Script::Log {
 public:
  void message(float, const Script::LogItm&) override {}
  void message(const Script::LogItm&) override {}
  void build() override {}
};

}  // namespace

TEST(Verify, AMissingRootIsReported) {
  const Tree tree;
  bool complete = true;
  EXPECT_EQ(report_of(tree.root, complete), "Tank{}\n");
  EXPECT_FALSE(complete);
}

TEST(Verify, EachMissingKeyIsALineOfScript) {
  Tree tree;
  tree.tank.build();
  bool complete = true;
  EXPECT_EQ(report_of(tree.root, complete), "Tank{n = $;}\nTank{Section[$..$]}\nTank{lid{}}\n");
  EXPECT_FALSE(complete);

  tree.tank.get()->n = 1;
  tree.tank.get()->lid.build();
  tree.tank.get()->sections.build(3, 2);
  tree.tank.get()->sections[1].depth = 1;
  EXPECT_EQ(report_of(tree.root, complete),
            "Tank{Section[2]{depth = $;}}\nTank{lid{depth = $;}}\n");
  EXPECT_FALSE(complete);
}

TEST(Verify, ACompleteTreeReportsNothing) {
  Tree tree;
  tree.tank.build();
  tree.tank.get()->n = 1;
  tree.tank.get()->lid.build();
  tree.tank.get()->lid.get()->depth = Script::NoReal;
  tree.tank.get()->sections.build(0, 0);
  tree.tank.get()->sections[0].depth = 1;
  bool complete = false;
  EXPECT_EQ(report_of(tree.root, complete), "");
  EXPECT_TRUE(complete);
}

TEST(Verify, AnOptionalObjectIsCheckedOnceItIsBuilt) {
  Script::WrapObj<Leaf> spare({SizeRule::at_most, 1, 0, 0});
  List list;
  list.object("spare", spare);
  bool complete = false;
  EXPECT_EQ(report_of(list, complete), "");
  EXPECT_TRUE(complete);
  spare.build();
  EXPECT_EQ(report_of(list, complete), "spare{depth = $;}\n");
  EXPECT_FALSE(complete);
}

TEST(SetPaths, KeysAndIndicesFormThePath) {
  Tree tree;
  tree.tank.build();
  tree.tank.get()->sections.build(3, 2);
  Owner owner;
  set_paths(tree.root, owner);
  EXPECT_EQ(tree.tank.get()->path(), "Tank");
  EXPECT_EQ(tree.tank.get()->sections[0].path(), "Tank::Section[2]");
  EXPECT_EQ(tree.tank.get()->sections[1].path(), "Tank::Section[3]");
  tree.tank.get()->lid.build();
  set_paths(tree.root, owner, "site");
  EXPECT_EQ(tree.tank.get()->lid.get()->path(), "site::Tank::lid");
}

TEST(SetPaths, NegativeIndicesKeepTheirSign) {
  Script::WrapAry<Leaf> array({});
  List list;
  list.array("a", array);
  array.build(-1, -1);
  Owner owner;
  set_paths(list, owner);
  EXPECT_EQ(array[0].path(), "a[-1]");
}

TEST(FindLog, TheOutermostLogComesFirst) {
  Tree tree;
  NullLog outer;
  NullLog inner;
  tree.tank.build();
  EXPECT_EQ(find_log(tree.root), nullptr);
  tree.tank.list().supply_log(&inner);
  EXPECT_EQ(find_log(tree.root), &inner);
  tree.root.supply_log(&outer);
  EXPECT_EQ(find_log(tree.root), &outer);
}

TEST(FindLog, TheSearchIsDepthFirst) {
  Tree tree;
  NullLog section;
  NullLog lid;
  tree.tank.build();
  tree.tank.get()->lid.build();
  tree.tank.get()->lid.list().supply_log(&lid);
  tree.tank.get()->sections.build(1, 0);
  EXPECT_EQ(find_log(tree.root), &lid);
  tree.tank.get()->sections.element(1).supply_log(&section);
  EXPECT_EQ(find_log(tree.root), &section);
}

TEST(Create, ChildrenAreCreatedBeforeTheirParents) {
  Tree tree;
  tree.tank.build();
  tree.tank.get()->n = 1;
  tree.tank.get()->sections.build(1, 0);
  tree.tank.get()->sections[0].depth = 1;
  tree.tank.get()->sections[1].depth = 1;
  tree.tank.get()->lid.build();
  tree.tank.get()->lid.get()->depth = 1;
  Owner owner;
  set_paths(tree.root, owner);
  finished().clear();
  create(tree.root);
  EXPECT_EQ(finished(), (std::vector<std::string>{"Tank::Section[0]", "Tank::Section[1]",
                                                  "Tank::lid", "Tank"}));
}

TEST(Create, UndefinedFieldsAreRefused) {
  Tree tree;
  EXPECT_EQ(thrown([&] { create(tree.root); }), "plain: calling create on undefined object");
  tree.tank.build();
  EXPECT_EQ(thrown([&] { create(tree.root); }), "plain: calling create on undefined object");
  List list;
  double unset = Script::UnsetReal;
  list.fixed("r", unset);
  EXPECT_EQ(thrown([&] { create(list); }), "plain: calling create on undefined object");
}

TEST(Create, AnOptionalObjectMayBeUndefined) {
  Script::WrapObj<Leaf> spare({SizeRule::at_most, 1, 0, 0});
  List list;
  list.object("spare", spare);
  EXPECT_EQ(thrown([&] { create(list); }), nothing_thrown);
}

TEST(Clone, DifferentListsAreRefused) {
  double real = 1;
  std::int32_t integer = 1;
  const auto list = [&](const char* name) {
    List made;
    made.name(name);
    return made;
  };
  List one = list("One");
  List two = list("Two");
  List unnamed;
  EXPECT_EQ(thrown([&] { clone(one, two); }), "plain: Trying to clone disimilar lists");
  EXPECT_EQ(thrown([&] { clone(one, unnamed); }), "plain: Trying to clone disimilar lists");
  EXPECT_EQ(thrown([&] { clone(unnamed, one); }), "plain: Trying to clone disimilar lists");
  EXPECT_EQ(thrown([&] { clone(unnamed, unnamed); }), nothing_thrown);

  const std::string same(one.name());
  List longer = list(same.c_str());
  longer.fixed("r", real);
  EXPECT_EQ(thrown([&] { clone(one, longer); }), "plain: Something very wrong");

  one.fixed("r", integer);
  EXPECT_EQ(thrown([&] { clone(one, longer); }), "plain: Major muckup");
  List adjustable = list("One");
  adjustable.adjustable("r", real);
  EXPECT_EQ(thrown([&] { clone(adjustable, longer); }), "plain: Major muckup");
}

TEST(Clone, CopiesEveryKindOfField) {
  Script::WrapObj<TestTree::Tank> from;
  Script::WrapObj<TestTree::Tank> to;
  from.build();
  to.build();
  TestTree::Tank& tank = *from.get();
  tank.depth = Script::UnsetReal;
  tank.gain = 2;
  tank.count = 3;
  tank.level = Script::NoInteger;
  tank.title = "title";
  tank.note = "note";
  tank.units.number = 7;
  tank.shown.number = Script::UnsetInteger;
  tank.box.build();
  tank.box.get()->x = 5;
  tank.section.build(8, 7);
  tank.section[1].width = 9;
  tank.section[1].layer.build(0, 0);
  clone(to.list(), from.list());

  EXPECT_EQ(std::bit_cast<std::uint64_t>(to.get()->depth), Script::UnsetRealBits);
  EXPECT_EQ(to.get()->shown.number, Script::UnsetInteger);
  to.get()->depth = tank.depth = 1;
  EXPECT_EQ(to.get()->dump(), tank.dump());
  EXPECT_EQ(to.get()->section.offset(), 7);
  EXPECT_EQ(tank.title, "title");
  EXPECT_EQ(to.get()->strict.get(), nullptr);
}
