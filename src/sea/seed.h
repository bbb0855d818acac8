// The seed of a modifier that draws at random: the seed of its class, or one that the host chooses.
#ifndef KELPBOX_SEA_SEED_H_
#define KELPBOX_SEA_SEED_H_

#include <cstdint>

#include "base/params.h"
#include "maths/random.h"

namespace Synthesis {

// Declares "ran_gen" and "seed".
void query_seed(Base::Params& out);
// Copies "ran_gen", and "seed" when "ran_gen" is not Default.
void set_seed(const Base::Params& in, Base::Params& stored);
// A generator with its first number drawn. For Default it has the seed of the class. For FullRandom
// and Distribute it has the parameter "seed", rounded.
Maths::PureRandom make_generator(const Base::Params& stored, std::uint32_t class_seed);

}  // namespace Synthesis

#endif  // KELPBOX_SEA_SEED_H_
