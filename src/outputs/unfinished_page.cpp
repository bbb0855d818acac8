#include "outputs/unfinished_page.h"

#include <unistd.h>

namespace Outputs {
namespace {

constexpr const char* beginning = ".report.html.kelpbox-";

}  // namespace

std::string unfinished_page() { return beginning + std::to_string(getpid()); }

bool is_unfinished_page(const std::string& name) { return name.starts_with(beginning); }

}  // namespace Outputs
