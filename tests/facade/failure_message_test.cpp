#include "facade/failure_message.h"

#include <gtest/gtest.h>

#include <new>
#include <stdexcept>
#include <string>

namespace {

template <typename Failure>
std::string message_of(const Failure& failure) {
  try {
    throw failure;
  } catch (...) {
    return Kelpbox::message_of_current();
  }
}

TEST(FailureMessage, IsThatOfEachKindOfFailure) {
  EXPECT_EQ(message_of(std::string("a text")), "a text");
  EXPECT_EQ(message_of<const char*>("a constant"), "a constant");
  EXPECT_EQ(message_of(std::bad_alloc()), "there is not enough memory");
  EXPECT_EQ(message_of(std::runtime_error("another")), "another");
  EXPECT_EQ(message_of(3), "an unknown failure");
}

}  // namespace
