// The flume of examples/flume.site: 0.7 m of water, one full-depth piston, drive signals at 50 Hz.
#ifndef KELPBOX_TESTS_FACADE_FLUME_H_
#define KELPBOX_TESTS_FACADE_FLUME_H_

#include <gtest/gtest.h>

#include "facade/site_facade.h"

inline constexpr double flume_depth = 0.7;  // m

// Reads the site without showing the progress lines.
inline void open_flume(Kelpbox::SiteFacade& site) {
  testing::internal::CaptureStdout();
  site.initialise(TEST_ROOT "/../examples/flume.site");
  testing::internal::GetCapturedStdout();
}

#endif  // KELPBOX_TESTS_FACADE_FLUME_H_
