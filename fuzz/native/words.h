// The words from which the fuzzer makes arguments.
#ifndef KELPBOX_FUZZ_NATIVE_WORDS_H_
#define KELPBOX_FUZZ_NATIVE_WORDS_H_

#include <string>
#include <vector>

namespace Fuzz {

// Names of parameters, units, members and types of enumerations, formulas, sites, labels.
const std::vector<std::string>& words();
// Tokens of numbers: as in an experiment, then others from which finite results are promised, and
// such from which they are not.
const std::vector<std::string>& sane_numbers();
const std::vector<std::string>& odd_numbers();
const std::vector<std::string>& wild_numbers();
const std::vector<std::string>& odd_integers();

}  // namespace Fuzz

#endif  // KELPBOX_FUZZ_NATIVE_WORDS_H_
