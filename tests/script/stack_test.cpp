#include "script/stack.h"

#include <gtest/gtest.h>

#include "script/parse.h"
#include "support/thrown.h"

using Script::List;
using Script::Stack;
using Script::Variable;
using Script::VarType;
using Testing::thrown;

namespace {

struct Scopes {
  Scopes() {
    outer.fixed("a", x);
    outer.fixed("b", y);
    inner.fixed("b", x);
    inner.fixed("c", x);
  }
  std::int32_t x = 1;
  double y = 2;
  List outer;
  List inner;
};

}  // namespace

TEST(Stack, OnlyTheInnermostListIsInScope) {
  Scopes scopes;
  Stack stack;
  stack.push(scopes.outer);
  EXPECT_EQ(stack.find("a").type(), VarType::fixed_integer);
  EXPECT_EQ(stack.find("b").type(), VarType::fixed_real);
  EXPECT_EQ(stack.find("c").type(), VarType::empty);
  stack.push(scopes.inner);
  EXPECT_EQ(stack.find("a").type(), VarType::empty);
  EXPECT_EQ(stack.find("b").type(), VarType::fixed_integer);
  EXPECT_EQ(stack.find("c").type(), VarType::fixed_integer);
  stack.pop();
  EXPECT_EQ(stack.find("a").type(), VarType::fixed_integer);
  EXPECT_EQ(stack.find("b").type(), VarType::fixed_real);
  EXPECT_EQ(stack.find("c").type(), VarType::empty);
}

TEST(Stack, FindReturnsTheFieldItself) {
  Scopes scopes;
  Stack stack;
  stack.push(scopes.outer);
  EXPECT_EQ(&stack.find("a").integer_field(), &scopes.x);
  EXPECT_STREQ(stack.find("a").name(), "a");
}

TEST(Stack, PopAtTheRootIsRefused) {
  Scopes scopes;
  Stack stack;
  EXPECT_EQ(thrown([&] { stack.pop(); }), "plain: Stack underflow!");
  stack.push(scopes.outer);
  EXPECT_EQ(thrown([&] { stack.pop(); }), "plain: Stack underflow!");
  EXPECT_EQ(stack.find("a").type(), VarType::fixed_integer);
}

TEST(Stack, TheSameListMayBeOpenTwice) {
  Scopes scopes;
  Stack stack;
  stack.push(scopes.outer);
  stack.push(scopes.outer);
  stack.pop();
  EXPECT_EQ(stack.find("a").type(), VarType::fixed_integer);
}

TEST(IdentToken, IsRefusedForLiterals) {
  EXPECT_EQ(thrown([] { Script::ident_token(Variable(1)); }),
            "plain: Unexpected type for an Ident!");
  EXPECT_EQ(thrown([] { Script::ident_token(Variable(1.0)); }),
            "plain: Unexpected type for an Ident!");
  EXPECT_EQ(thrown([] { Script::ident_token(Variable(std::string("s"))); }),
            "plain: Unexpected type for an Ident!");
}
