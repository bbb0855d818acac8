// Exported functions that hosts cannot tell apart are one function.
#include <set>
#include <vector>

#include "fixture.h"

namespace {

template <typename... Functions>
std::set<const void*> addresses(Functions... functions) {
  return {reinterpret_cast<const void*>(functions)...};
}

#define OF_SEVEN(before, after)                                                              \
  NATIVE(before##Double##after), NATIVE(before##Float##after), NATIVE(before##Short##after), \
      NATIVE(before##UInt##after), OF_FRONTS(before, after)
#define OF_FRONTS(before, after)                                     \
  NATIVE(before##Front##after), NATIVE(before##DisplayFront##after), \
      NATIVE(before##TransferFront##after)
#define OF_NINE(before, after) \
  OF_SEVEN(before, after), NATIVE(before##String##after), NATIVE(before##Param##after)

TEST(Aliases, AllFamiliesShareFunctionsThatDoNotDependOnTheElement) {
  EXPECT_EQ(addresses(OF_NINE(Kelpbox_1StdVector, _1isEmpty)).size(), 1u);
  EXPECT_EQ(addresses(OF_NINE(new_1Kelpbox_1StdVector, _1_1SWIG_10)).size(), 1u);
}

TEST(Aliases, PlainElementsShareClearAndDelete) {
  EXPECT_EQ(addresses(OF_SEVEN(Kelpbox_1StdVector, _1clear)).size(), 1u);
  EXPECT_EQ(addresses(OF_NINE(Kelpbox_1StdVector, _1clear)).size(), 3u);
  EXPECT_EQ(addresses(OF_SEVEN(delete_1Kelpbox_1StdVector, )).size(), 1u);
  EXPECT_EQ(addresses(OF_NINE(delete_1Kelpbox_1StdVector, )).size(), 3u);
}

TEST(Aliases, ElementsOfOneWidthShareTheSizes) {
  EXPECT_EQ(addresses(OF_FRONTS(Kelpbox_1StdVector, _1size), NATIVE(Kelpbox_1StdVectorString_1size))
                .size(),
            1u);
  EXPECT_EQ(addresses(OF_FRONTS(Kelpbox_1StdVector, _1capacity),
                      NATIVE(Kelpbox_1StdVectorString_1capacity))
                .size(),
            1u);
  EXPECT_EQ(
      addresses(NATIVE(Kelpbox_1StdVectorFloat_1size), NATIVE(Kelpbox_1StdVectorUInt_1size)).size(),
      1u);
  EXPECT_EQ(
      addresses(NATIVE(Kelpbox_1StdVectorFloat_1capacity), NATIVE(Kelpbox_1StdVectorUInt_1capacity))
          .size(),
      1u);
  // Widths 8, 4, 2, 32 and that of a parameter.
  EXPECT_EQ(addresses(OF_NINE(Kelpbox_1StdVector, _1size)).size(), 5u);
  EXPECT_EQ(addresses(OF_NINE(Kelpbox_1StdVector, _1capacity)).size(), 5u);
}

TEST(Aliases, ElementsOfOneWidthShareReserveAndTheSizedConstructor) {
  EXPECT_EQ(addresses(OF_FRONTS(Kelpbox_1StdVector, _1reserve)).size(), 1u);
  EXPECT_EQ(addresses(OF_FRONTS(Kelpbox_1StdVector, _1get)).size(), 1u);
  EXPECT_EQ(addresses(OF_FRONTS(new_1Kelpbox_1StdVector, _1_1SWIG_11)).size(), 1u);
  EXPECT_EQ(
      addresses(NATIVE(Kelpbox_1StdVectorFloat_1reserve), NATIVE(Kelpbox_1StdVectorUInt_1reserve))
          .size(),
      1u);
  EXPECT_EQ(addresses(NATIVE(new_1Kelpbox_1StdVectorFloat_1_1SWIG_11),
                      NATIVE(new_1Kelpbox_1StdVectorUInt_1_1SWIG_11))
                .size(),
            1u);
  // Strings share only the sizes.
  EXPECT_EQ(addresses(OF_NINE(Kelpbox_1StdVector, _1reserve)).size(), 6u);
  EXPECT_EQ(addresses(OF_NINE(new_1Kelpbox_1StdVector, _1_1SWIG_11)).size(), 6u);
}

TEST(Aliases, RecordsShareTheirFields) {
  EXPECT_EQ(addresses(NATIVE(Kelpbox_1Front_1get_1amp), NATIVE(Kelpbox_1DisplayFront_1get_1amp),
                      NATIVE(Kelpbox_1TransferFront_1get_1amp), NATIVE(Kelpbox_1Position_1get_1x))
                .size(),
            1u);
  EXPECT_EQ(addresses(NATIVE(Kelpbox_1Front_1get_1angle), NATIVE(Kelpbox_1DisplayFront_1get_1angle),
                      NATIVE(Kelpbox_1TransferFront_1get_1angle), NATIVE(Kelpbox_1Position_1get_1y))
                .size(),
            1u);
  EXPECT_EQ(addresses(NATIVE(Kelpbox_1Front_1get_1phase), NATIVE(Kelpbox_1DisplayFront_1get_1phase),
                      NATIVE(Kelpbox_1TransferFront_1get_1phase), NATIVE(Kelpbox_1Position_1get_1t))
                .size(),
            1u);
  EXPECT_EQ(
      addresses(NATIVE(Kelpbox_1Front_1get_1freq), NATIVE(Kelpbox_1DisplayFront_1get_1freq)).size(),
      1u);
}

TEST(Aliases, RecordsShareConstructorsAndDelete) {
  EXPECT_EQ(
      addresses(NATIVE(new_1Kelpbox_1Front_1_1SWIG_11), NATIVE(new_1Kelpbox_1DisplayFront)).size(),
      1u);
  EXPECT_EQ(
      addresses(NATIVE(new_1Kelpbox_1Front_1_1SWIG_10), NATIVE(new_1Kelpbox_1TransferFront)).size(),
      1u);
  EXPECT_EQ(addresses(NATIVE(delete_1Kelpbox_1Front), NATIVE(delete_1Kelpbox_1DisplayFront),
                      NATIVE(delete_1Kelpbox_1TransferFront), NATIVE(delete_1Kelpbox_1Position),
                      NATIVE(delete_1Kelpbox_1RunData))
                .size(),
            1u);
}

TEST(Aliases, ThePlainNamesOfQueryAndSetAreTheSiteForms) {
  EXPECT_EQ(
      addresses(NATIVE(Kelpbox_1Experiment_1query), NATIVE(Kelpbox_1Experiment_1query_1_1SWIG_10))
          .size(),
      1u);
  EXPECT_EQ(addresses(NATIVE(Kelpbox_1Experiment_1set), NATIVE(Kelpbox_1Experiment_1set_1_1SWIG_10))
                .size(),
            1u);
  EXPECT_EQ(addresses(NATIVE(Kelpbox_1Experiment_1query_1_1SWIG_10),
                      NATIVE(Kelpbox_1Experiment_1query_1_1SWIG_11))
                .size(),
            2u);
}

TEST(Aliases, AnAnalysisSharesConstructorAndSiteWithAnExperiment) {
  EXPECT_EQ(
      addresses(NATIVE(new_1Kelpbox_1Analysis), NATIVE(new_1Kelpbox_1Experiment_1_1SWIG_10)).size(),
      1u);
  EXPECT_EQ(
      addresses(NATIVE(Kelpbox_1Analysis_1get_1consts), NATIVE(Kelpbox_1Experiment_1get_1consts))
          .size(),
      1u);
  EXPECT_EQ(
      addresses(NATIVE(Kelpbox_1Analysis_1query), NATIVE(Kelpbox_1Experiment_1query_1_1SWIG_10))
          .size(),
      1u);
  EXPECT_EQ(
      addresses(NATIVE(Kelpbox_1Analysis_1profile), NATIVE(Kelpbox_1Experiment_1profile)).size(),
      1u);
  // After its set, an analysis makes the tank only with the next process.
  EXPECT_EQ(addresses(NATIVE(Kelpbox_1Analysis_1set), NATIVE(Kelpbox_1Experiment_1set)).size(), 2u);
}

}  // namespace
