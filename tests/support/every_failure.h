// A call under failing memory: each of its allocations fails once, and then again together with all
// later ones.
#ifndef KELPBOX_TESTS_SUPPORT_EVERY_FAILURE_H_
#define KELPBOX_TESTS_SUPPORT_EVERY_FAILURE_H_

#include <gtest/gtest.h>

#include <cstddef>
#include <cstdint>
#include <exception>
#include <iostream>
#include <memory>
#include <set>
#include <streambuf>
#include <string>

#include "support/failing_memory.h"

namespace Testing {

// A checksum of what is written to the standard streams, made without memory.
class WrittenBytes : public std::streambuf {
 public:
  WrittenBytes() : out_(std::cout.rdbuf(this)), err_(std::cerr.rdbuf(this)) {}
  ~WrittenBytes() override {
    std::cout.rdbuf(out_);
    std::cerr.rdbuf(err_);
  }
  WrittenBytes(const WrittenBytes&) = delete;
  WrittenBytes& operator=(const WrittenBytes&) = delete;

  std::uint64_t sum = 0;

 private:
  int_type overflow(int_type c) override {
    sum = (sum ^ static_cast<std::uint8_t>(c)) * 1099511628211U;
    return 0;
  }

  std::streambuf* out_;
  std::streambuf* err_;
};

// The message of an exception. Types of a subsystem of its own are "another type".
inline std::string message_in(const std::exception_ptr& thrown) {
  try {
    std::rethrow_exception(thrown);
  } catch (const std::string& message) {
    return message;
  } catch (const char* message) {
    return std::string("plain: ") + message;
  } catch (const std::exception& failure) {
    return failure.what();
  } catch (...) {
    return "another type";
  }
}

struct Failures {
  long allocations = 0;            // that the call needs
  long survived = 0;               // of those that failed alone: the call succeeded without them
  long abandoned = 0;              // blocks that calls left and an undisturbed one does not
  std::set<std::string> messages;  // of the calls in which one allocation failed
};

// `make` returns a pointer to a new object with everything that comes before the call, `call` is
// the call, and `result` returns what it leaves. For every allocation of the call:
//
// - A call that fails is repeated on the same object, and then succeeds. A slow call on an object
//   that `make` returns again and again may be repeated after some of the failures only, and then
//   all later allocations fail with some of them only.
// - The result is that of an undisturbed call. So are the lines of a call that succeeds.
// - When the object has ended, no more blocks are left than `abandoned`.
template <typename Make, typename Call, typename Result>
class EveryFailure {
 public:
  EveryFailure(Make make, Call call, Result result, long repeated)
      : make_(make), call_(call), result_(result), repeated_(repeated) {}

  Failures run() {
    // What is made once in a process is there afterwards.
    for (int i = 0; i < 2; ++i) {
      expected_.reset();
      left_ = -held_blocks();
      run_undisturbed();
      left_ += held_blocks() - held_by(*expected_);
    }
    // So is what is made once for the first failure.
    fails(0, Fails::once);
    all_ = {};
    for (const Fails kind : {Fails::once, Fails::from_there_on}) {
      const long step = kind == Fails::once ? 1 : repeated_;
      for (long allocations = 0; fails(allocations, kind); allocations += step) {
        if (kind == Fails::once) all_.allocations = allocations + 1;
        if (testing::Test::HasFailure()) {
          ADD_FAILURE() << (kind == Fails::once ? "one allocation" : "all allocations")
                        << " failed after " << allocations << ", " << message_;
          return all_;
        }
        if (kind == Fails::once && !message_.empty()) all_.messages.insert(message_);
      }
    }
    return all_;
  }

 private:
  using Value = decltype(std::declval<Result>()(*std::declval<Make>()()));

  void run_undisturbed() {
    const auto object = make_();
    written_.sum = 0;
    call_(*object);
    lines_ = written_.sum;
    expected_ = std::make_unique<Value>(result_(*object));
  }

  // The blocks of a copy.
  static long held_by(const Value& value) {
    const long before = held_blocks();
    const auto copy = std::make_unique<Value>(value);
    return held_blocks() - before;
  }

  // Whether an allocation has failed.
  bool fails(long allocations, Fails kind) {
    message_.clear();
    message_.reserve(4096);
    const long before = held_blocks();
    bool has_failed = false;
    {
      const auto object = make_();
      std::exception_ptr thrown;
      written_.sum = 0;
      {
        const FailingMemory memory(allocations, kind);
        try {
          call_(*object);
        } catch (...) {
          thrown = std::current_exception();
        }
        has_failed = memory.has_failed();
      }
      if (thrown) {
        message_ = message_in(thrown);
        thrown = nullptr;
        EXPECT_TRUE(has_failed) << message_;
        if (allocations % repeated_ != 0) return has_failed;
        call_(*object);
      } else {
        EXPECT_EQ(written_.sum, lines_);
        if (has_failed && kind == Fails::once) ++all_.survived;
      }
      EXPECT_TRUE(result_(*object) == *expected_);
    }
    all_.abandoned += held_blocks() - before - left_;
    return has_failed;
  }

  Make make_;
  Call call_;
  Result result_;
  long repeated_;
  WrittenBytes written_;
  std::uint64_t lines_ = 0;
  long left_ = 0;
  std::unique_ptr<Value> expected_;
  std::string message_;
  Failures all_;
};

template <typename Make, typename Call, typename Result>
Failures every_failure(Make make, Call call, Result result, long repeated = 1) {
  return EveryFailure<Make, Call, Result>(make, call, result, repeated).run();
}

}  // namespace Testing

#endif  // KELPBOX_TESTS_SUPPORT_EVERY_FAILURE_H_
