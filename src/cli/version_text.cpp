#include "cli/version_text.h"

#include "base/fft.h"
#include "outputs/version.h"

// KELPBOX_LIBRARIES is defined by CMakeLists.txt.
namespace Cli {

std::string version_text(bool verbose) {
  std::string text = "kelpbox " + Outputs::version() + "\n";
  if (!verbose) return text;
  text += "  compiler       " + Outputs::compiler() + "\n";
  text += std::string("  transforms     ") + Base::transform_library() + "\n";
  return text + KELPBOX_LIBRARIES;
}

}  // namespace Cli
