// Changes a sequence of calls: whole lines, and arguments according to their kinds. Changes of
// single bytes would seldom give another sequence.
#ifndef KELPBOX_FUZZ_NATIVE_MUTATOR_H_
#define KELPBOX_FUZZ_NATIVE_MUTATOR_H_

#include <random>
#include <vector>

#include "fuzz/native/script.h"

namespace Fuzz {

using Draws = std::minstd_rand;

void mutate(std::vector<Line>& lines, Draws& draws);
// Some lines of one sequence within the other.
std::vector<Line> crossed(const std::vector<Line>& one, const std::vector<Line>& other,
                          Draws& draws);

// A token for an argument of the row.
std::string random_token(const struct Argument& argument, Draws& draws);

}  // namespace Fuzz

#endif  // KELPBOX_FUZZ_NATIVE_MUTATOR_H_
