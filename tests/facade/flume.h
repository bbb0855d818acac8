// The flume of examples/flume.site: 0.7 m of water, one full-depth piston, drive signals at 50 Hz.
#ifndef KELPBOX_TESTS_FACADE_FLUME_H_
#define KELPBOX_TESTS_FACADE_FLUME_H_

#include "facade/site_facade.h"
#include "support/output.h"

inline constexpr double flume_depth = 0.7;  // m

// Reads the site without showing the progress lines.
inline void open_flume(Kelpbox::SiteFacade& site) {
  Testing::printed([&] { site.initialise(TEST_ROOT "/../examples/flume.site"); });
}

#endif  // KELPBOX_TESTS_FACADE_FLUME_H_
