#include "sea/seed.h"

#include "base/enumerations.h"
#include "base/units.h"
#include "maths/rounding.h"

namespace Synthesis {

namespace {

bool host_chooses(const Base::Params& params) {
  return params.read_enum("ran_gen", Base::EnumType::RanGen) != Base::RanGen::Default;
}

}  // namespace

void query_seed(Base::Params& out) {
  out.declare_enum("ran_gen", Base::EnumType::RanGen);
  out.declare("seed", Base::default_units(Base::Category::unit));
}

void set_seed(const Base::Params& in, Base::Params& stored) {
  stored.merge(*in.find("ran_gen"));
  if (host_chooses(in)) stored.merge(*in.find("seed"));
}

Maths::PureRandom make_generator(const Base::Params& stored, std::uint32_t class_seed) {
  Maths::PureRandom generator(class_seed);
  generator.init();
  if (host_chooses(stored)) {
    generator.seed(Maths::round_to_u32(stored.read("seed", Base::Category::unit)));
  }
  return generator;
}

}  // namespace Synthesis
