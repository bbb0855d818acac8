#include "cli/version_text.h"

#include "base/fft.h"

// KELPBOX_VERSION and KELPBOX_LIBRARIES are defined by CMakeLists.txt.
namespace Cli {

std::string version() { return KELPBOX_VERSION; }

std::string version_text(bool verbose) {
  std::string text = "kelpbox " + version() + "\n";
  if (!verbose) return text;
#ifdef __clang__
  text += "  compiler       " __VERSION__ "\n";
#else
  text += "  compiler       GCC " __VERSION__ "\n";
#endif
  text += std::string("  transforms     ") + Base::transform_library() + "\n";
  return text + KELPBOX_LIBRARIES;
}

}  // namespace Cli
