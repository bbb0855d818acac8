// The frame of the functions of tidelab.waves.Native, and the strings that cross it.
#include <new>
#include <stdexcept>

#include "exported/host_array.h"
#include "exported/host_text.h"
#include "exported/safe_frame.h"
#include "script/log.h"
#include "support/thrown.h"
#include "waves_fixture.h"

using namespace Kelpbox;

namespace {

using Testing::WavesTest;

class WavesFrame : public WavesTest {
 protected:
  // What the frame throws in Java after the operation has thrown this.
  template <typename Failure>
  Thrown converted(Failure failure) {
    EXPECT_EQ(safely(waves.env(), [&]() -> jlong { throw failure; }), 0);
    return waves.take_thrown();
  }
};

TEST_F(WavesFrame, EveryFailureBecomesTheOneException) {
  EXPECT_EQ(converted(std::string("of a string")), domain("of a string"));
  EXPECT_EQ(converted("of a pointer"), domain("of a pointer"));
  EXPECT_EQ(converted(std::out_of_range("of the standard library")),
            domain("of the standard library"));
  EXPECT_EQ(converted(std::bad_alloc()), domain("There is not enough memory"));
  EXPECT_EQ(converted(Script::LogItm("General", Script::Level::error).add("of the log")),
            domain("Error::of the log"));
  EXPECT_EQ(converted(7), domain("an unknown failure"));
}

TEST_F(WavesFrame, APendingExceptionStaysAsItIs) {
  waves.objects_left = 0;
  const auto make = [&] { return host_array(waves.env(), std::vector<double>{1, 2}); };
  EXPECT_EQ(safely(waves.env(), make), nullptr);
  EXPECT_EQ(waves.take_thrown(), (Thrown{"java/lang/OutOfMemoryError", "array"}));
}

TEST_F(WavesFrame, WithoutTheExceptionClassNothingIsThrown) {
  waves.missing_classes.insert(domain("").class_name);
  EXPECT_EQ(converted(std::string("lost")), Thrown{});
}

TEST_F(WavesFrame, MessagesMayHoldAnyBytes) {
  EXPECT_EQ(converted(std::string("H\xC3\xB6he \xFF")), domain("H\xC3\xB6he \xEF\xBF\xBD"));
}

TEST_F(WavesFrame, TextsForJavaAreModifiedUtf8) {
  EXPECT_EQ(modified_utf8("a\xC3\xA9\xE2\x82\xAC"), "a\xC3\xA9\xE2\x82\xAC");
  // U+1F600 is the pair D83D DE00; each half takes three bytes.
  EXPECT_EQ(modified_utf8("\xF0\x9F\x98\x80"), "\xED\xA0\xBD\xED\xB8\x80");
  EXPECT_EQ(modified_utf8("\xF4\x8F\xBF\xBF"), "\xED\xAF\xBF\xED\xBF\xBF");
  EXPECT_EQ(modified_utf8(std::string_view("a\0b", 3)),
            "a\xC0\x80"
            "b");
  const std::string replaced = "\xEF\xBF\xBD";
  EXPECT_EQ(modified_utf8("\x80x"), replaced + "x");
  EXPECT_EQ(modified_utf8("\xC0\x80"), replaced + replaced);  // overlong
  EXPECT_EQ(modified_utf8("\xED\xA0\xBD"), replaced + replaced + replaced);
  EXPECT_EQ(modified_utf8("end \xE2\x82"), "end " + replaced + replaced);
}

TEST_F(WavesFrame, TextsFromJavaBecomeUtf8) {
  EXPECT_EQ(utf8_of(u"a\u00E9\u20AC"), "a\xC3\xA9\xE2\x82\xAC");
  EXPECT_EQ(utf8_of(u"\U0001F600\U0010FFFF"), "\xF0\x9F\x98\x80\xF4\x8F\xBF\xBF");
  // Beside the surrogates.
  EXPECT_EQ(utf8_of(u"\uD7FF\uE000\uFFFF"), "\xED\x9F\xBF\xEE\x80\x80\xEF\xBF\xBF");
  const std::string replaced = "\xEF\xBF\xBD";
  const char16_t high = 0xD83D;
  const char16_t low = 0xDE00;
  EXPECT_EQ(utf8_of({high}), replaced);
  EXPECT_EQ(utf8_of({low, high}), replaced + replaced);
  EXPECT_EQ(utf8_of({high, u'a', low}), replaced + "a" + replaced);
  EXPECT_EQ(utf8_of({u'a', u'\0', u'b'}), std::string("a\0b", 3));
}

TEST_F(WavesFrame, ArraysOfJavaHaveAtMost31Bits) {
  EXPECT_EQ(array_length(2147483647), 2147483647);
  EXPECT_EQ(Testing::thrown([] { array_length(2147483648); }),
            "2147483648 values are too many for an array of Java: at most 2147483647");
}

TEST_F(WavesFrame, NumbersOutOfRangeAreNamed) {
  EXPECT_EQ(number(4294967295, "bank"), 4294967295U);
  EXPECT_EQ(Testing::thrown([] { number(4294967296, "bank"); }), "bank 4294967296 is out of range");
  EXPECT_EQ(Testing::thrown([] { id(-1); }), "ID -1 is out of range");
}

TEST_F(WavesFrame, NullsAndTheAddress0AreRefused) {
  const Thrown null_array = domain("null array");
  const Thrown no_object = domain("The address of an object is 0");
  experiment = new_experiment();
  EXPECT_EQ(thrown_in(WAVES(newExperiment), nullptr), null_array);
  EXPECT_EQ(thrown_in(WAVES(initialise), experiment, nullptr), null_array);
  EXPECT_EQ(thrown_in(WAVES(newParams), nullptr, nullptr, nullptr, nullptr), null_array);
  EXPECT_EQ(thrown_in(WAVES(newVector), bytes(""), bytes("m"), nullptr), null_array);
  EXPECT_EQ(thrown_in(WAVES(addFronts), experiment, 0, nullptr), null_array);
  EXPECT_EQ(thrown_in(WAVES(createSet), experiment, params(), nullptr), null_array);
  EXPECT_EQ(thrown_in(WAVES(initialise), 0, bytes("x")), no_object);
  EXPECT_EQ(thrown_in(WAVES(setWorkers), 0, 2), no_object);
  EXPECT_EQ(thrown_in(WAVES(paramTexts), 0), no_object);
  EXPECT_EQ(thrown_in(WAVES(paramValues), 0), no_object);
  EXPECT_EQ(thrown_in(WAVES(paramComments), 0), no_object);
  EXPECT_EQ(thrown_in(WAVES(signals), 0, 0, 0), no_object);
  EXPECT_EQ(thrown_in(WAVES(addTimeSeries), experiment, 0, 0), no_object);
  EXPECT_EQ(thrown_in(WAVES(profile), experiment, 0), no_object);
  EXPECT_EQ(thrown_in(WAVES(evaluate), experiment, 0, 0, 0, 0), no_object);
  EXPECT_EQ(thrown_in(WAVES(bank), experiment, 0, 0), no_object);
  EXPECT_EQ(thrown_in(WAVES(querySite), experiment, 0), no_object);
  EXPECT_EQ(thrown_in(WAVES(setItem), 0, 0, params()), no_object);
  EXPECT_EQ(thrown_in(WAVES(repeat), 0, 0), no_object);
  EXPECT_EQ(thrown_in(WAVES(formulaParameters), nullptr, params()), null_array);
  EXPECT_EQ(thrown_in(WAVES(convert), bytes("m"), nullptr), null_array);
}

}  // namespace
