// The choice of a seed that the modifiers which draw at random offer to a host.
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
// A generator of the class's own seed for Default, and of "seed", rounded, for either of the other
// two, which do the same. Its first number is ready to be read.
Maths::PureRandom make_generator(const Base::Params& stored, std::uint32_t class_seed);

}  // namespace Synthesis

#endif  // KELPBOX_SEA_SEED_H_
