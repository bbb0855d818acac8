// The families of vectors.
#include <cstddef>
#include <limits>
#include <memory>
#include <new>
#include <stdexcept>

#include "facade/facade.h"
#include "fixture.h"

namespace {

using Testing::HostTest;

// The functions that every family has, and the size of an element.
struct Family {
  const char* name;
  std::size_t width;
  decltype(&NATIVE(new_1Kelpbox_1StdVectorDouble_1_1SWIG_10)) make;
  decltype(&NATIVE(new_1Kelpbox_1StdVectorDouble_1_1SWIG_11)) make_sized;
  decltype(&NATIVE(delete_1Kelpbox_1StdVectorDouble)) destroy;
  decltype(&NATIVE(Kelpbox_1StdVectorDouble_1size)) size;
  decltype(&NATIVE(Kelpbox_1StdVectorDouble_1capacity)) capacity;
  decltype(&NATIVE(Kelpbox_1StdVectorDouble_1reserve)) reserve;
  decltype(&NATIVE(Kelpbox_1StdVectorDouble_1isEmpty)) is_empty;
  decltype(&NATIVE(Kelpbox_1StdVectorDouble_1clear)) clear;
};

#define FAMILY(family, width)                                                                     \
  Family {                                                                                        \
#family, width, &NATIVE(new_1Kelpbox_1StdVector##family##_1_1SWIG_10),                        \
        &NATIVE(new_1Kelpbox_1StdVector##family##_1_1SWIG_11),                                    \
        &NATIVE(delete_1Kelpbox_1StdVector##family), &NATIVE(Kelpbox_1StdVector##family##_1size), \
        &NATIVE(Kelpbox_1StdVector##family##_1capacity),                                          \
        &NATIVE(Kelpbox_1StdVector##family##_1reserve),                                           \
        &NATIVE(Kelpbox_1StdVector##family##_1isEmpty),                                           \
        &NATIVE(Kelpbox_1StdVector##family##_1clear)                                              \
  }

const Family families[] = {
    FAMILY(Double, 8), FAMILY(Float, 4),         FAMILY(UInt, 4),
    FAMILY(Short, 2),  FAMILY(String, 32),       FAMILY(Param, sizeof(Base::Param)),
    FAMILY(Front, 32), FAMILY(DisplayFront, 32), FAMILY(TransferFront, 32)};

class EveryFamily : public HostTest, public testing::WithParamInterface<Family> {
 protected:
  jlong make() { return own(host.call(family.make), family.destroy); }
  jlong make(jlong count) { return own(host.call(family.make_sized, count), family.destroy); }
  jlong size(jlong vector) { return host.call(family.size, vector, proxy); }
  jlong capacity(jlong vector) { return host.call(family.capacity, vector, proxy); }
  bool is_empty(jlong vector) { return host.call(family.is_empty, vector, proxy) == JNI_TRUE; }

  const Family& family = GetParam();
};

TEST_P(EveryFamily, StartsEmpty) {
  const jlong vector = make();
  EXPECT_EQ(size(vector), 0);
  EXPECT_EQ(capacity(vector), 0);
  EXPECT_TRUE(is_empty(vector));
}

TEST_P(EveryFamily, OfSizeZeroIsEmpty) {
  const jlong vector = make(0);
  EXPECT_EQ(size(vector), 0);
  EXPECT_TRUE(is_empty(vector));
}

TEST_P(EveryFamily, OfASizeHasThatManyElements) {
  const jlong vector = make(5);
  EXPECT_EQ(size(vector), 5);
  EXPECT_GE(capacity(vector), 5);
  EXPECT_FALSE(is_empty(vector));
}

TEST_P(EveryFamily, ReserveRaisesOnlyTheCapacity) {
  const jlong vector = make(2);
  host.call(family.reserve, vector, proxy, 50);
  EXPECT_GE(capacity(vector), 50);
  EXPECT_EQ(size(vector), 2);
}

TEST_P(EveryFamily, ReserveBelowTheCapacityDoesNothing) {
  const jlong vector = make(40);
  const jlong before = capacity(vector);
  host.call(family.reserve, vector, proxy, 10);
  EXPECT_EQ(capacity(vector), before);
  host.call(family.reserve, vector, proxy, before);
  EXPECT_EQ(capacity(vector), before);
  EXPECT_EQ(size(vector), 40);
}

TEST_P(EveryFamily, ClearKeepsTheCapacity) {
  const jlong vector = make(7);
  const jlong before = capacity(vector);
  host.call(family.clear, vector, proxy);
  EXPECT_EQ(size(vector), 0);
  EXPECT_EQ(capacity(vector), before);
  EXPECT_TRUE(is_empty(vector));
}

TEST_P(EveryFamily, ATooLongVectorLeavesALengthError) {
  const jlong longest = std::numeric_limits<std::ptrdiff_t>::max() / family.width;
  const jlong vector = make(1);
  for (const jlong count : {longest + 1, jlong{-1}}) {
    try {
      host.call(family.reserve, vector, proxy, count);
      ADD_FAILURE() << "reserve passed";
    } catch (const std::length_error& failure) {
      EXPECT_STREQ(failure.what(), "vector<T> too long");
    }
    EXPECT_THROW(host.call(family.make_sized, count), std::length_error);
  }
  EXPECT_EQ(size(vector), 1);
}

TEST_P(EveryFamily, ExhaustedMemoryLeavesABadAlloc) {
#ifdef KELPBOX_SANITIZED
  GTEST_SKIP() << "the sanitizer ends the program instead";
#endif
  const jlong longest = std::numeric_limits<std::ptrdiff_t>::max() / family.width;
  const jlong vector = make();
  EXPECT_THROW(host.call(family.reserve, vector, proxy, longest), std::bad_alloc);
  EXPECT_EQ(capacity(vector), 0);
}

TEST_P(EveryFamily, DeletingNullDoesNothing) { host.call(family.destroy, 0); }

INSTANTIATE_TEST_SUITE_P(Vectors, EveryFamily, testing::ValuesIn(families),
                         [](const auto& test) { return std::string(test.param.name); });

class Vectors : public HostTest {
 protected:
  const Thrown bad_index = index_out_of_bounds();
};

// A family of numbers: grows until it is moved, is read back, overwritten and indexed out of range.
#define CHECK_NUMBERS(family, first, second)                                                    \
  {                                                                                             \
    SCOPED_TRACE(#family);                                                                      \
    const jlong v = own(host.call(NATIVE(new_1Kelpbox_1StdVector##family##_1_1SWIG_10)),        \
                        NATIVE(delete_1Kelpbox_1StdVector##family));                            \
    const auto get = NATIVE(Kelpbox_1StdVector##family##_1get);                                 \
    const auto set = NATIVE(Kelpbox_1StdVector##family##_1set);                                 \
    EXPECT_EQ(host.call(get, v, proxy, 0), 0);                                                  \
    EXPECT_EQ(host.take_thrown(), bad_index);                                                   \
    for (int i = 0; i < 100; ++i) {                                                             \
      host.call(NATIVE(Kelpbox_1StdVector##family##_1add), v, proxy, i % 2 ? second : first);   \
    }                                                                                           \
    EXPECT_EQ(host.call(NATIVE(Kelpbox_1StdVector##family##_1size), v, proxy), 100);            \
    for (int i = 0; i < 100; ++i) {                                                             \
      EXPECT_EQ(host.call(get, v, proxy, i), (i % 2 ? second : first));                         \
    }                                                                                           \
    host.call(set, v, proxy, 99, first);                                                        \
    EXPECT_EQ(host.call(get, v, proxy, 99), first);                                             \
    for (const jint i :                                                                         \
         {-1, 100, std::numeric_limits<jint>::min(), std::numeric_limits<jint>::max()}) {       \
      EXPECT_EQ(host.call(get, v, proxy, i), 0);                                                \
      EXPECT_EQ(host.take_thrown(), bad_index);                                                 \
      EXPECT_EQ(thrown_by(set, v, proxy, i, second), bad_index);                                \
    }                                                                                           \
    const jlong sized = own(host.call(NATIVE(new_1Kelpbox_1StdVector##family##_1_1SWIG_11), 3), \
                            NATIVE(delete_1Kelpbox_1StdVector##family));                        \
    for (jint i = 0; i < 3; ++i) EXPECT_EQ(host.call(get, sized, proxy, i), 0);                 \
  }

TEST_F(Vectors, NumbersAreCopied) {
  CHECK_NUMBERS(Double, 0.1, -1e300);
  CHECK_NUMBERS(Float, 0.5f, -3e38f);
  CHECK_NUMBERS(Short, jshort{-32768}, jshort{32767});
  CHECK_NUMBERS(UInt, jlong{0xFFFFFFFF}, jlong{1});
}

TEST_F(Vectors, AnUnsignedElementIsTheLow32Bits) {
  const jlong vector = own(host.call(NATIVE(new_1Kelpbox_1StdVectorUInt_1_1SWIG_10)),
                           NATIVE(delete_1Kelpbox_1StdVectorUInt));
  host.call(NATIVE(Kelpbox_1StdVectorUInt_1add), vector, proxy, jlong{3} << 32 | 9);
  EXPECT_EQ(host.call(NATIVE(Kelpbox_1StdVectorUInt_1get), vector, proxy, 0), 9);
  host.call(NATIVE(Kelpbox_1StdVectorUInt_1set), vector, proxy, 0, -1);
  EXPECT_EQ(host.call(NATIVE(Kelpbox_1StdVectorUInt_1get), vector, proxy, 0), jlong{0xFFFFFFFF});
}

TEST_F(Vectors, ABadIndexClearsThePendingExceptionBeforeItThrows) {
  const jlong vector = doubles({1.0});
  host.log.clear();
  EXPECT_EQ(host.call(NATIVE(Kelpbox_1StdVectorDouble_1get), vector, proxy, -1), 0.0);
  EXPECT_EQ(host.log, (std::vector<std::string>{
                          "ExceptionClear", "FindClass java/lang/IndexOutOfBoundsException",
                          "ThrowNew java/lang/IndexOutOfBoundsException vector index out of "
                          "range"}));
  EXPECT_EQ(host.take_thrown(), bad_index);
}

TEST_F(Vectors, StringsAreCopiedInAndReturnedAsNewStrings) {
  const jlong vector = own(host.call(NATIVE(new_1Kelpbox_1StdVectorString_1_1SWIG_10)),
                           NATIVE(delete_1Kelpbox_1StdVectorString));
  const auto add = NATIVE(Kelpbox_1StdVectorString_1add);
  const auto get = NATIVE(Kelpbox_1StdVectorString_1get);
  const auto set = NATIVE(Kelpbox_1StdVectorString_1set);
  const std::string long_text(1000, 'x');
  for (int i = 0; i < 50; ++i) host.call(add, vector, proxy, i % 2 ? long_text : "short");
  EXPECT_EQ(host.call(NATIVE(Kelpbox_1StdVectorString_1size), vector, proxy), 50);
  EXPECT_EQ(string_from(get, vector, proxy, 48), "short");
  EXPECT_EQ(string_from(get, vector, proxy, 49), long_text);
  EXPECT_NE(host.call(get, vector, proxy, 0), host.call(get, vector, proxy, 0));
  host.call(set, vector, proxy, 49, "");
  EXPECT_EQ(string_from(get, vector, proxy, 49), "");

  EXPECT_EQ(thrown_by(add, vector, proxy, nullptr), null_pointer("null std::string"));
  EXPECT_EQ(thrown_by(set, vector, proxy, 0, nullptr), null_pointer("null std::string"));
  EXPECT_EQ(thrown_by(set, vector, proxy, 50, nullptr), null_pointer("null std::string"));
  EXPECT_EQ(thrown_by(set, vector, proxy, 50, "x"), bad_index);
  EXPECT_EQ(host.call(get, vector, proxy, -1), nullptr);
  EXPECT_EQ(host.take_thrown(), bad_index);
  EXPECT_EQ(host.call(NATIVE(Kelpbox_1StdVectorString_1size), vector, proxy), 50);

  host.call(NATIVE(Kelpbox_1StdVectorString_1reserve), vector, proxy, 500);
  EXPECT_EQ(string_from(get, vector, proxy, 47), long_text);
  host.call(NATIVE(Kelpbox_1StdVectorString_1clear), vector, proxy);
  EXPECT_EQ(host.call(NATIVE(Kelpbox_1StdVectorString_1isEmpty), vector, proxy), JNI_TRUE);
}

// A family of records: a record is copied in, and read in place.
#define CHECK_RECORDS(family, element_type, record, refusal)                             \
  {                                                                                      \
    SCOPED_TRACE(#family);                                                               \
    const jlong v = own(host.call(NATIVE(new_1Kelpbox_1StdVector##family##_1_1SWIG_10)), \
                        NATIVE(delete_1Kelpbox_1StdVector##family));                     \
    const auto add = NATIVE(Kelpbox_1StdVector##family##_1add);                          \
    const auto get = NATIVE(Kelpbox_1StdVector##family##_1get);                          \
    const auto set = NATIVE(Kelpbox_1StdVector##family##_1set);                          \
    for (int i = 0; i < 20; ++i) host.call(add, v, proxy, record, proxy);                \
    const jlong first = host.call(get, v, proxy, 0);                                     \
    EXPECT_NE(first, record);                                                            \
    EXPECT_EQ(host.call(get, v, proxy, 19) - first, jlong{19 * sizeof(element_type)});   \
    EXPECT_EQ(thrown_by(add, v, proxy, 0, proxy), null_pointer(refusal));                \
    EXPECT_EQ(thrown_by(set, v, proxy, 0, 0, proxy), null_pointer(refusal));             \
    EXPECT_EQ(thrown_by(set, v, proxy, 99, 0, proxy), null_pointer(refusal));            \
    for (const jint i : {-1, 20}) {                                                      \
      EXPECT_EQ(host.call(get, v, proxy, i), 0);                                         \
      EXPECT_EQ(host.take_thrown(), bad_index);                                          \
      EXPECT_EQ(thrown_by(set, v, proxy, i, record, proxy), bad_index);                  \
    }                                                                                    \
    EXPECT_EQ(host.call(NATIVE(Kelpbox_1StdVector##family##_1size), v, proxy), 20);      \
  }

TEST_F(Vectors, RecordsAreReadInPlace) {
  const jlong front = own(host.call(NATIVE(new_1Kelpbox_1Front_1_1SWIG_11), 1.0, 2.0, 3.0, 4.0),
                          NATIVE(delete_1Kelpbox_1Front));
  const jlong display = own(host.call(NATIVE(new_1Kelpbox_1DisplayFront), 1.0, 2.0, 3.0, 4.0),
                            NATIVE(delete_1Kelpbox_1DisplayFront));
  const jlong transfer =
      own(host.call(NATIVE(new_1Kelpbox_1TransferFront)), NATIVE(delete_1Kelpbox_1TransferFront));
  const jlong param = own(host.call(NATIVE(new_1Kelpbox_1Param)), NATIVE(delete_1Kelpbox_1Param));
  CHECK_RECORDS(Front, Synthesis::Front, front,
                "std::vector< Synthesis::Front >::value_type const & reference is null");
  CHECK_RECORDS(DisplayFront, Maths::DisplayFront, display,
                "std::vector< Maths::DisplayFront >::value_type const & reference is null");
  CHECK_RECORDS(TransferFront, Maths::TransferFront, transfer,
                "std::vector< Maths::TransferFront >::value_type const & reference is null");
  CHECK_RECORDS(Param, Base::Param, param,
                "std::vector< Base::Param >::value_type const & reference is null");
}

TEST_F(Vectors, AFrontInAVectorIsACopy) {
  const jlong vector = own(host.call(NATIVE(new_1Kelpbox_1StdVectorFront_1_1SWIG_11), 2),
                           NATIVE(delete_1Kelpbox_1StdVectorFront));
  const jlong front = own(host.call(NATIVE(new_1Kelpbox_1Front_1_1SWIG_11), 1.0, 2.0, 3.0, 4.0),
                          NATIVE(delete_1Kelpbox_1Front));
  host.call(NATIVE(Kelpbox_1StdVectorFront_1set), vector, proxy, 1, front, proxy);
  const jlong zero = host.call(NATIVE(Kelpbox_1StdVectorFront_1get), vector, proxy, 0);
  const jlong copy = host.call(NATIVE(Kelpbox_1StdVectorFront_1get), vector, proxy, 1);
  EXPECT_EQ(host.call(NATIVE(Kelpbox_1Front_1get_1amp), zero, proxy), 0.0);
  EXPECT_EQ(host.call(NATIVE(Kelpbox_1Front_1get_1amp), copy, proxy), 2.0);
  EXPECT_EQ(host.call(NATIVE(Kelpbox_1Front_1get_1freq), copy, proxy), 1.0);
}

// The functions that families share move all 64 bits of a harmonic. No host can set such a
// harmonic, so the test writes it into the record.
TEST_F(Vectors, AHarmonicIsMovedWhole) {
  const jlong vector = own(host.call(NATIVE(new_1Kelpbox_1StdVectorTransferFront_1_1SWIG_11), 1),
                           NATIVE(delete_1Kelpbox_1StdVectorTransferFront));
  const jlong element = host.call(NATIVE(Kelpbox_1StdVectorTransferFront_1get), vector, proxy, 0);
  // The pattern of a signalling NaN, were it a double.
  reinterpret_cast<Maths::TransferFront*>(element)->harmonic = 0x7FF0000000000007;
  host.call(NATIVE(Kelpbox_1StdVectorTransferFront_1reserve), vector, proxy, 1000);
  const jlong moved = host.call(NATIVE(Kelpbox_1StdVectorTransferFront_1get), vector, proxy, 0);
  EXPECT_EQ(reinterpret_cast<Maths::TransferFront*>(moved)->harmonic, 0x7FF0000000000007u);
  EXPECT_EQ(host.call(NATIVE(Kelpbox_1TransferFront_1get_1harmonic), moved, proxy), 7);
}

}  // namespace
