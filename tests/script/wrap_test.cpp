#include "script/wrap.h"

#include <gtest/gtest.h>

#include "script/alternatives.h"
#include "support/thrown.h"
#include "support/thrown_item.h"
#include "test_tree.h"

using Script::Rule;
using Script::SizeRule;
using Testing::nothing_thrown;
using Testing::thrown;
using Testing::thrown_item;
using TestTree::Layer;
using Array = Script::WrapAry<Layer>;

namespace {

class Shape : public Script::Declared {
 public:
  void declare(Script::List& list) override { list.fixed("size", size); }
  double size = TestTree::untouched;
};
class Round : public Shape {
 public:
  const char* class_name() const override { return "Round"; }
};
class Square : public Shape {
 public:
  const char* class_name() const override { return "Square"; }
};

std::string build(Rule rule, std::int32_t last, std::int32_t first) {
  Array array(rule);
  return thrown([&] { array.build(last, first); });
}

}  // namespace

TEST(Array, HasAnElementForEachIndexBetweenItsBounds) {
  Array array({});
  Script::List& first = array.build(4, 2);
  EXPECT_EQ(array.offset(), 2);
  EXPECT_EQ(array.size(), 3u);
  ASSERT_EQ(array.lists().size(), 3u);
  EXPECT_EQ(&first, &array.lists()[0]);
  EXPECT_EQ(&array.element(2), &array.lists()[0]);
  EXPECT_EQ(&array.element(4), &array.lists()[2]);
  EXPECT_STREQ(array.element(3).name(), "Layer");
  ASSERT_EQ(array.element(3).items().size(), 1u);
  EXPECT_EQ(&array.element(3).items()[0].real_field(), &array[1].depth);
}

TEST(Array, EqualBoundsGiveOneElementAndReversedOnesAreRefused) {
  EXPECT_EQ(build({}, 2, 2), nothing_thrown);
  EXPECT_EQ(build({}, 1, 2), "plain: max is not greater than min");
  EXPECT_EQ(build({}, -2147483647, 2147483647), "plain: max is not greater than min");
}

TEST(Array, TheOffsetIsCheckedUnderOffsetRuleTwoOnly) {
  EXPECT_EQ(build({SizeRule::any, 0, 2, 1}, 3, 0), "plain: Wrong offset value");
  EXPECT_EQ(build({SizeRule::any, 0, 2, 1}, 3, 1), nothing_thrown);
  EXPECT_EQ(build({SizeRule::any, 0, 1, 1}, 3, 0), nothing_thrown);
  EXPECT_EQ(build({SizeRule::any, 0, 0, 1}, 3, 0), nothing_thrown);
}

TEST(Array, AFixedOffsetIsZeroUnlessTheRuleNamesAnother) {
  EXPECT_EQ(build({SizeRule::any, 0, 2}, 3, 0), nothing_thrown);
  EXPECT_EQ(build({SizeRule::any, 0, 2}, 3, 1), "plain: Wrong offset value");
}

TEST(Array, TheSizeMustFollowTheRule) {
  const std::string bad = "plain: Size of array out of bounds";
  EXPECT_EQ(build({SizeRule::any, 4, 0, 0}, 9, 0), nothing_thrown);
  EXPECT_EQ(build({SizeRule::at_most, 4, 0, 0}, 3, 0), nothing_thrown);
  EXPECT_EQ(build({SizeRule::at_most, 4, 0, 0}, 4, 0), bad);
  EXPECT_EQ(build({SizeRule::at_least, 4, 0, 0}, 2, 0), bad);
  EXPECT_EQ(build({SizeRule::at_least, 4, 0, 0}, 3, 0), nothing_thrown);
  EXPECT_EQ(build({SizeRule::exactly, 4, 0, 0}, 2, 0), bad);
  EXPECT_EQ(build({SizeRule::exactly, 4, 0, 0}, 3, 0), nothing_thrown);
  EXPECT_EQ(build({SizeRule::exactly, 4, 0, 0}, 4, 0), bad);
  EXPECT_EQ(build({static_cast<SizeRule>(4), 4, 0, 0}, 3, 0), bad);
  EXPECT_EQ(build({static_cast<SizeRule>(-1), 4, 0, 0}, 3, 0), bad);
}

TEST(Array, ChecksHaveAFixedOrder) {
  const Rule strict{SizeRule::exactly, 2, 2, 1};
  EXPECT_EQ(build(strict, 0, 5), "plain: max is not greater than min");
  EXPECT_EQ(build(strict, 9, 5), "plain: Wrong offset value");
  EXPECT_EQ(build(strict, 9, 1), "plain: Size of array out of bounds");
  Array array(strict);
  array.build(2, 1);
  EXPECT_EQ(thrown([&] { array.build(0, 5); }), "plain: Rebuilding with a differnt size");
  EXPECT_EQ(thrown([&] { array.build(3, 2); }), "plain: Rebuilding with a differnt offset");
  EXPECT_EQ(&array.build(2, 1), &array.lists()[0]);
  EXPECT_EQ(array.size(), 2u);
}

TEST(Array, AFailedBuildLeavesItEmpty) {
  Array array({SizeRule::at_most, 2, 0, 0});
  EXPECT_EQ(thrown([&] { array.build(5, 0); }), "plain: Size of array out of bounds");
  EXPECT_TRUE(array.lists().empty());
  array.build(1, 0);
  EXPECT_EQ(array.size(), 2u);
}

TEST(Array, ExcessiveSizesAreRefusedAfterTheRules) {
  const std::string large =
      "Array of 2000000001 elements is too large: at most 100000 "
      "can be made at once";
  EXPECT_EQ(build({}, 2000000000, 0), large);
  EXPECT_EQ(build({}, 99999, 0), nothing_thrown);
  EXPECT_EQ(build({SizeRule::at_most, 3, 0, 0}, 2000000000, 0),
            "plain: Size of array out of bounds");
}

TEST(Array, TheSizeIsFixedIfTheRuleRequiresElements) {
  EXPECT_FALSE(Array({SizeRule::any, 3, 0, 0}).fixed_size());
  EXPECT_FALSE(Array({SizeRule::at_most, 3, 0, 0}).fixed_size());
  EXPECT_TRUE(Array({SizeRule::at_least, 3, 0, 0}).fixed_size());
  EXPECT_TRUE(Array({SizeRule::exactly, 3, 0, 0}).fixed_size());
  EXPECT_FALSE(Array({SizeRule::at_least, 0, 0, 0}).fixed_size());
  EXPECT_FALSE(Array({SizeRule::exactly, 0, 0, 0}).fixed_size());
}

TEST(Array, ReplicateCopiesTheFirstElementToAllOthers) {
  Array array({});
  EXPECT_EQ(thrown([&] { array.replicate(); }), "plain: Wrong build order");
  array.build(3, 1);
  array[0].depth = 5;
  array[2].depth = 6;
  array.replicate();
  EXPECT_EQ(array[0].depth, 5);
  EXPECT_EQ(array[1].depth, 5);
  EXPECT_EQ(array[2].depth, 5);
}

TEST(Array, ElementTakesTheIndexOfTheScript) {
  Array array({});
  EXPECT_EQ(thrown([&] { array.element(0); }),
            "plain: Trying to access a list of an unreplicated array object");
  array.build(3, 2);
  EXPECT_EQ(thrown([&] { array.element(1); }), "plain: Accessing array out of bounds");
  EXPECT_EQ(thrown([&] { array.element(4); }), "plain: Accessing array out of bounds");
  EXPECT_EQ(thrown([&] { array.element(-2147483647 - 1); }),
            "plain: Accessing array out of bounds");
}

TEST(Array, SubscriptsAreCheckedAndCountFromZero) {
  Array array({});
  const std::string bad = " is out of bounds";
  EXPECT_EQ(thrown_item([&] { array[0]; }), "item: General: Error::Array element 0" + bad);
  array.build(3, 2);
  EXPECT_EQ(thrown_item([&] { array[1]; }), nothing_thrown);
  EXPECT_EQ(thrown_item([&] { array[2]; }), "item: General: Error::Array element 2" + bad);
}

TEST(Object, IsBuiltOnlyOnce) {
  Script::WrapObj<Layer> object;
  EXPECT_EQ(object.get(), nullptr);
  EXPECT_EQ(object.list().name(), nullptr);
  object.build();
  const Layer* built = object.get();
  ASSERT_NE(built, nullptr);
  EXPECT_STREQ(object.list().name(), "Layer");
  EXPECT_EQ(object.list().items().size(), 1u);
  object.build();
  EXPECT_EQ(object.get(), built);
  EXPECT_EQ(object.list().items().size(), 1u);
}

TEST(List, ANullNameReadsTheName) {
  Script::List list;
  EXPECT_EQ(list.name(), nullptr);
  EXPECT_STREQ(list.name("Tank"), "Tank");
  EXPECT_STREQ(list.name(nullptr), "Tank");
}

TEST(List, KeepsItsNameAndItemsWhenItMoves) {
  double depth = 1.5;
  Script::List first;
  first.name("Tank");
  first.fixed("depth", depth);
  Script::List second(std::move(first));
  EXPECT_STREQ(second.name(), "Tank");
  ASSERT_EQ(second.items().size(), 1u);
  EXPECT_EQ(&second.items()[0].real_field(), &depth);
}

TEST(Alternatives, AreStoredInTheirBaseInTheOrderOfBuilding) {
  Script::WrapBase<Shape> shapes({SizeRule::exactly, 2, 0, 0});
  Script::WrapAlternative<Round, Shape> round(shapes, 0);
  Script::WrapAlternative<Square, Shape> square(shapes, 1);
  square.build();
  round.build();
  ASSERT_EQ(shapes.size(), 2u);
  EXPECT_EQ(&shapes[0], square.get());
  EXPECT_EQ(&shapes[1], round.get());
  round.build();
  EXPECT_EQ(shapes.size(), 2u);
}

TEST(Alternatives, OneTooManyIsRefused) {
  for (const SizeRule rule : {SizeRule::at_most, SizeRule::exactly}) {
    Script::WrapBase<Shape> shapes({rule, 1, 0, 0});
    Script::WrapAlternative<Round, Shape> round(shapes, 0);
    Script::WrapAlternative<Square, Shape> square(shapes, 1);
    round.build();
    EXPECT_EQ(thrown([&] { square.build(); }), "plain: Out of space");
  }
}

TEST(Alternatives, WithoutAnUpperLimitAnyNumberIsAccepted) {
  Script::WrapBase<Shape> shapes({SizeRule::at_least, 1, 0, 0});
  Script::WrapAlternative<Round, Shape> round(shapes, 0);
  Script::WrapAlternative<Square, Shape> square(shapes, 1);
  round.build();
  square.build();
  EXPECT_EQ(shapes.size(), 2u);
}

TEST(Alternatives, MustBeNumberedWithoutGapsUnderOffsetRuleTwo) {
  for (const std::int32_t second : {3, 4, 5}) {
    Script::WrapBase<Shape> shapes({SizeRule::any, 0, 2, 0});
    Script::WrapAlternative<Round, Shape> round(shapes, 3);
    Script::WrapAlternative<Square, Shape> square(shapes, second);
    round.build();
    EXPECT_EQ(thrown([&] { square.build(); }),
              second == 4 ? nothing_thrown : "plain: Item not consecutively numbered");
  }
}

TEST(Alternatives, AreRequiredIfTheRuleOfTheirBaseRequiresElements) {
  Script::WrapBase<Shape> wanted({SizeRule::exactly, 1, 0, 0});
  Script::WrapBase<Shape> free({SizeRule::any, 1, 0, 0});
  EXPECT_TRUE((Script::WrapAlternative<Round, Shape>(wanted, 0).required()));
  EXPECT_FALSE((Script::WrapAlternative<Round, Shape>(free, 0).required()));
  EXPECT_FALSE(Script::WrapObj<Layer>().required());
}
