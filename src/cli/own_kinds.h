// The waves and changes that a job names by the library's own words.
#ifndef KELPBOX_CLI_OWN_KINDS_H_
#define KELPBOX_CLI_OWN_KINDS_H_

#include <string>
#include <vector>

#include "base/params.h"
#include "cli/sea_page.h"

namespace Cli {

std::vector<SeaPage> own_waves();
std::vector<SeaPage> own_changes();

// The pages' form of what the library declares for a kind: required ones first.
std::vector<PageParameter> declared_parameters(const std::string& kind,
                                               const Base::Params& declared);
// What a modifier declares besides the parameters of its formula.
Base::Params declared_by_modifier(const std::string& modifier);

}  // namespace Cli

#endif  // KELPBOX_CLI_OWN_KINDS_H_
