// The frame around every exported function.
#include "exported/frame.h"

#include <stdexcept>

#include "facade/facade.h"
#include "fixture.h"

using namespace Kelpbox;

namespace {

using Testing::HostTest;

using Log = std::vector<std::string>;

class Frame : public HostTest {};

TEST_F(Frame, NullTextIsRefusedWithoutEnteringTheOperation) {
  const jlong set = params();
  EXPECT_EQ(thrown_by(NATIVE(Kelpbox_1Params_1insert_1_1SWIG_10), set, proxy, nullptr, 1.0, "m"),
            null_pointer("null std::string"));
  EXPECT_EQ(thrown_by(NATIVE(Kelpbox_1Params_1insert_1_1SWIG_10), set, proxy, "x", 1.0, nullptr),
            null_pointer("null std::string"));
  EXPECT_TRUE(names(set).empty());
}

TEST_F(Frame, EveryTextArgumentRefusesNull) {
  const Thrown refused = null_pointer("null std::string");
  const jlong set = params();
  const jlong empty = empty_experiment();
  const jlong data = doubles({});
  EXPECT_EQ(thrown_by(NATIVE(Kelpbox_1Param_1convert), nullptr, "m"), refused);
  EXPECT_EQ(thrown_by(NATIVE(Kelpbox_1Param_1convert), "m", nullptr), refused);
  EXPECT_EQ(thrown_by(NATIVE(Kelpbox_1Param_1alternate), nullptr), refused);
  EXPECT_EQ(thrown_by(NATIVE(Kelpbox_1Params_1get), set, proxy, nullptr, "m"), refused);
  EXPECT_EQ(thrown_by(NATIVE(Kelpbox_1Params_1get_1enum), set, proxy, "a", nullptr), refused);
  EXPECT_EQ(thrown_by(NATIVE(Kelpbox_1Params_1insert_1_1SWIG_11), set, proxy, "a", nullptr, "Bool"),
            refused);
  EXPECT_EQ(thrown_by(NATIVE(new_1Kelpbox_1Vector), nullptr, "m", data, proxy), refused);
  EXPECT_EQ(thrown_by(NATIVE(new_1Kelpbox_1Experiment_1_1SWIG_11), nullptr), refused);
  EXPECT_EQ(thrown_by(NATIVE(Kelpbox_1Experiment_1initialise), empty, proxy, nullptr), refused);
  EXPECT_EQ(thrown_by(NATIVE(Kelpbox_1Experiment_1add_1definition), empty, proxy, nullptr),
            refused);
  EXPECT_EQ(thrown_by(NATIVE(Kelpbox_1Experiment_1add_1spectrum), empty, proxy, 0, "a", nullptr),
            refused);
  EXPECT_EQ(thrown_by(NATIVE(Kelpbox_1Experiment_1add_1timeexp), empty, proxy, 0, nullptr, "a"),
            refused);
  EXPECT_EQ(thrown_by(NATIVE(Kelpbox_1Experiment_1add_1modifier), empty, proxy, 0, nullptr, "a"),
            refused);
  EXPECT_EQ(thrown_by(NATIVE(Kelpbox_1Experiment_1get_1params), nullptr, set, proxy), refused);
}

TEST_F(Frame, CharactersAreReleasedBeforeTheNextArgument) {
  host.call(NATIVE(Kelpbox_1Param_1convert), "ft", "m");
  EXPECT_EQ(host.log, (Log{"GetStringUTFChars ft", "ReleaseStringUTFChars ft",
                           "GetStringUTFChars m", "ReleaseStringUTFChars m"}));
}

TEST_F(Frame, CharactersThatTheHostWithholdsLeaveItsOwnException) {
  host.refuses_characters = true;
  EXPECT_EQ(host.call(NATIVE(Kelpbox_1Param_1convert), "ft", "m"), 0.0);
  EXPECT_EQ(host.log, Log{"GetStringUTFChars ft"});
}

TEST_F(Frame, TextsAreTakenBeforeALaterNullReferenceIsRefused) {
  EXPECT_EQ(host.call(NATIVE(new_1Kelpbox_1Vector), "eta", "m", 0, proxy), 0);
  EXPECT_EQ(
      host.log,
      (Log{"GetStringUTFChars eta", "ReleaseStringUTFChars eta", "GetStringUTFChars m",
           "ReleaseStringUTFChars m", "ExceptionClear", "FindClass java/lang/NullPointerException",
           "ThrowNew java/lang/NullPointerException std::vector< double > const & reference "
           "is null"}));
  host.take_thrown();
}

TEST_F(Frame, NullTextHidesALaterNullReference) {
  EXPECT_EQ(thrown_by(NATIVE(new_1Kelpbox_1Vector), "eta", nullptr, 0, proxy),
            null_pointer("null std::string"));
  EXPECT_EQ(thrown_by(NATIVE(Kelpbox_1Experiment_1get_1params), nullptr, 0, proxy),
            null_pointer("null std::string"));
}

TEST_F(Frame, NullReferenceHidesALaterNullReference) {
  bool entered = false;
  call(
      host.env(), [&](const Base::Params&, const std::vector<double>&) { entered = true; },
      Reference<const Base::Params&>{0}, Reference<const std::vector<double>&>{0});
  EXPECT_FALSE(entered);
  EXPECT_EQ(host.take_thrown(), null_pointer("Base::Params const & reference is null"));
  EXPECT_EQ(host.log.size(), 3u);
}

TEST_F(Frame, NullReferenceHidesALaterNullText) {
  call(
      host.env(), [](Base::Params&, const std::string&) {}, Reference<Base::Params&>{0},
      Text(nullptr));
  EXPECT_EQ(host.take_thrown(), null_pointer("Base::Params & reference is null"));
}

template <typename Kind>
std::string refusal(Host& host) {
  EXPECT_FALSE(Kind{0}.take(host.env()));
  const Thrown thrown = host.take_thrown();
  EXPECT_EQ(thrown.class_name, "java/lang/NullPointerException");
  return thrown.message;
}

TEST_F(Frame, NullReferenceIsRefusedWithItsDeclaredType) {
  EXPECT_EQ(refusal<Reference<Base::Params&>>(host), "Base::Params & reference is null");
  EXPECT_EQ(refusal<Reference<const Base::Params&>>(host),
            "Base::Params const & reference is null");
  EXPECT_EQ(refusal<Reference<const std::vector<double>&>>(host),
            "std::vector< double > const & reference is null");
  EXPECT_EQ(refusal<Reference<const std::vector<unsigned>&>>(host),
            "std::vector< unsigned int > const & reference is null");
  EXPECT_EQ(refusal<Reference<const Synthesis::DispFronts&>>(host),
            "Synthesis::DispFronts const & reference is null");
  EXPECT_EQ(refusal<Reference<Base::Vector&>>(host), "Base::Vector & reference is null");
  EXPECT_EQ(refusal<Element<Base::Param>>(host),
            "std::vector< Base::Param >::value_type const & reference is null");
  EXPECT_EQ(refusal<Element<Maths::DisplayFront>>(host),
            "std::vector< Maths::DisplayFront >::value_type const & reference is null");
  EXPECT_EQ(refusal<Element<Synthesis::Front>>(host),
            "std::vector< Synthesis::Front >::value_type const & reference is null");
  EXPECT_EQ(refusal<Element<Maths::TransferFront>>(host),
            "std::vector< Maths::TransferFront >::value_type const & reference is null");
}

TEST_F(Frame, EveryOperationRefusesANullReference) {
  const jlong empty = empty_experiment();
  const Thrown refused = null_pointer("Base::Params & reference is null");
  EXPECT_EQ(thrown_by(NATIVE(Kelpbox_1Experiment_1get_1consts), empty, proxy, 0, proxy), refused);
  EXPECT_EQ(thrown_by(NATIVE(Kelpbox_1Experiment_1query), empty, proxy, 0, proxy), refused);
  EXPECT_EQ(thrown_by(NATIVE(Kelpbox_1Experiment_1set), empty, proxy, 0, proxy), refused);
  EXPECT_EQ(thrown_by(NATIVE(Kelpbox_1Experiment_1profile), empty, proxy, 0, proxy), refused);
  EXPECT_EQ(thrown_by(NATIVE(Kelpbox_1Experiment_1paddle_1bank_1info), empty, proxy, 0, 0, proxy),
            refused);
  EXPECT_EQ(thrown_by(NATIVE(Kelpbox_1Experiment_1paddle_1info), empty, proxy, 0, 0, 0, proxy),
            refused);
  EXPECT_EQ(thrown_by(NATIVE(Kelpbox_1Experiment_1query_1_1SWIG_11), empty, proxy, 0, 0, proxy),
            refused);
  EXPECT_EQ(thrown_by(NATIVE(Kelpbox_1Experiment_1set_1_1SWIG_11), empty, proxy, 0, 0, proxy),
            refused);
  EXPECT_EQ(thrown_by(NATIVE(Kelpbox_1Experiment_1get_1params), "x", 0, proxy), refused);
  EXPECT_EQ(
      thrown_by(NATIVE(Kelpbox_1Experiment_1paddle_1motion_1build), empty, proxy, 0, 0, proxy),
      refused);
  EXPECT_EQ(
      thrown_by(NATIVE(Kelpbox_1Experiment_1paddle_1motion_1stats), empty, proxy, 0, 0, 0, proxy),
      refused);
  EXPECT_EQ(thrown_by(NATIVE(Kelpbox_1Experiment_1add_1fronts), empty, proxy, 0, 0, proxy),
            null_pointer("Synthesis::DispFronts const & reference is null"));
  EXPECT_EQ(thrown_by(NATIVE(Kelpbox_1Experiment_1add_1timeseries), empty, proxy, 0, 0, proxy),
            null_pointer("Base::Vector & reference is null"));
}

TEST_F(Frame, StandardExceptionsComeFromTheTable) {
  const std::vector<std::pair<int, std::string>> table = {
      {1, "java/lang/OutOfMemoryError"},     {2, "java/io/IOException"},
      {3, "java/lang/RuntimeException"},     {4, "java/lang/IndexOutOfBoundsException"},
      {5, "java/lang/ArithmeticException"},  {6, "java/lang/IllegalArgumentException"},
      {7, "java/lang/NullPointerException"}, {8, "java/lang/RuntimeException"},
      {9, "java/lang/UnknownError"},         {0, "java/lang/UnknownError"},
      {10, "java/lang/UnknownError"},        {-1, "java/lang/UnknownError"},
  };
  for (const auto& [code, class_name] : table) {
    host.log.clear();
    throw_standard(host.env(), static_cast<Standard>(code), "words");
    EXPECT_EQ(host.log, (Log{"ExceptionClear", "FindClass " + class_name,
                             "ThrowNew " + class_name + " words"}))
        << code;
    EXPECT_EQ(host.take_thrown(), (Thrown{class_name, "words"}));
  }
}

TEST_F(Frame, WithoutTheStandardClassNothingIsThrown) {
  host.missing_classes.insert("java/lang/NullPointerException");
  throw_standard(host.env(), Standard::null_pointer, "words");
  EXPECT_EQ(host.log, (Log{"ExceptionClear", "FindClass java/lang/NullPointerException"}));
}

TEST_F(Frame, TheDomainThrowNeitherClearsNorChecksTheClass) {
  const std::string name = "tidelab/waves/component/WaveSynthesisException";
  throw_domain(host.env(), "words");
  EXPECT_EQ(host.log, (Log{"FindClass " + name, "ThrowNew " + name + " words"}));

  host.log.clear();
  host.missing_classes.insert(name);
  throw_domain(host.env(), "words");
  EXPECT_EQ(host.log, (Log{"FindClass " + name, "ThrowNew (null) words"}));
  host.take_thrown();
}

TEST_F(Frame, AThrownStringBecomesTheDomainExceptionAndTheDefaultIsReturned) {
  const jlong number = own(host.call(NATIVE(new_1Kelpbox_1Param)), NATIVE(delete_1Kelpbox_1Param));
  EXPECT_EQ(host.call(NATIVE(Kelpbox_1Param_1convert), "furlong", "m"), 0.0);
  EXPECT_EQ(host.take_thrown(), domain("Unknown units - furlong"));
  EXPECT_EQ(host.call(NATIVE(Kelpbox_1Param_1enum_1type), number, proxy), nullptr);
  EXPECT_EQ(host.take_thrown(), domain("Trying to convert to Enum from non Enum type"));
  EXPECT_EQ(host.call(NATIVE(Kelpbox_1Experiment_1run_1size), empty_experiment(), proxy, 0), 0);
  EXPECT_EQ(host.take_thrown(), domain("ID out of range"));
  const auto refuse = []() -> bool { throw std::string("no"); };
  EXPECT_EQ(call(host.env(), refuse), JNI_FALSE);
  EXPECT_EQ(host.take_thrown(), domain("no"));
}

TEST_F(Frame, OnlyStringsAreCaught) {
  EXPECT_THROW(call(host.env(), [] { throw std::runtime_error("no"); }), std::runtime_error);
  EXPECT_THROW(call(host.env(), [] { throw "no"; }), const char*);
  EXPECT_THROW(call(host.env(), [] { throw Script::LogItm("General", 1); }), Script::LogItm);
  EXPECT_TRUE(host.log.empty());
}

TEST_F(Frame, TheIndexGuardCatchesOnlyABadIndex) {
  call<IndexGuard>(host.env(), [] { throw std::out_of_range("far out"); });
  EXPECT_EQ(host.take_thrown(), (Thrown{"java/lang/IndexOutOfBoundsException", "far out"}));
  EXPECT_THROW(call<IndexGuard>(host.env(), [] { throw std::string("no"); }), std::string);
  EXPECT_THROW(call<IndexGuard>(host.env(), [] { throw std::length_error("no"); }),
               std::length_error);
}

TEST_F(Frame, WithoutAGuardEveryExceptionLeaves) {
  EXPECT_THROW(call<NoGuard>(host.env(), [] { throw std::string("no"); }), std::string);
  EXPECT_THROW(call<NoGuard>(host.env(), [] { throw std::out_of_range("no"); }), std::out_of_range);
  EXPECT_TRUE(host.log.empty());
}

TEST_F(Frame, UnsignedArgumentsAreTheLow32Bits) {
  EXPECT_EQ(Unsigned{jlong{5} << 32 | 7}.value(), 7u);
  EXPECT_EQ(Unsigned{-1}.value(), 0xFFFFFFFFu);
  const jlong experiment = basin();
  const jlong id =
      host.call(NATIVE(Kelpbox_1Experiment_1add_1definition), experiment, proxy, "run");
  const jlong shown = jlong{1} << 32 | id;
  EXPECT_EQ(host.call(NATIVE(Kelpbox_1Experiment_1run_1size), experiment, proxy, shown), 0);
}

TEST_F(Frame, UnsignedResultsAreNeverNegative) {
  EXPECT_EQ(call(host.env(), [] { return 0xFFFFFFFFu; }), jlong{0xFFFFFFFF});
}

TEST_F(Frame, AnyNonzeroBooleanIsTrue) {
  EXPECT_TRUE(Bool{JNI_TRUE}.value());
  EXPECT_TRUE(Bool{2}.value());
  EXPECT_FALSE(Bool{JNI_FALSE}.value());
}

TEST_F(Frame, StringsKeepTheBytesOfTheHost) {
  const std::string bytes = "H\xC3\xB6he \xC0\x80 \xED\xA0\xBD";
  const jlong strings = own(host.call(NATIVE(new_1Kelpbox_1StdVectorString_1_1SWIG_10)),
                            NATIVE(delete_1Kelpbox_1StdVectorString));
  host.call(NATIVE(Kelpbox_1StdVectorString_1add), strings, proxy, bytes);
  EXPECT_EQ(string_from(NATIVE(Kelpbox_1StdVectorString_1get), strings, proxy, 0), bytes);
  EXPECT_EQ(host.log.back(), "NewStringUTF " + bytes);
}

TEST_F(Frame, AResultByValueIsANewObjectForTheHost) {
  const jlong first = own(host.call(NATIVE(Kelpbox_1Param_1alternate), "m"),
                          NATIVE(delete_1Kelpbox_1StdVectorString));
  const jlong second = own(host.call(NATIVE(Kelpbox_1Param_1alternate), "m"),
                           NATIVE(delete_1Kelpbox_1StdVectorString));
  EXPECT_NE(first, second);
}

}  // namespace
