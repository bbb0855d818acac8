#include "base/units.h"
#include "facade/experiment.h"
#include "facade/guard.h"

namespace Kelpbox {
namespace {

Common::Paddles& bank_of(Common::Context& context, std::uint32_t bank) {
  if (bank >= context.wavemaker_bank.size()) throw std::string("Paddle bank out of range");
  return context.wavemaker_bank[bank];
}

}  // namespace

std::string Experiment::context_name() { return context().full_name(); }

std::string Experiment::context_string() {
  const Common::Context& site = context();
  return site.identity(site_checksum());
}

void Experiment::set(Base::Params& in) {
  guarded("Uncaught Exception in Experiment set", [&] {
    tank().set(in);
    context().clear_ready();
    context().make_ready();
  });
}

std::uint32_t Experiment::paddle_banks() {
  return static_cast<std::uint32_t>(context().wavemaker_bank.size());
}

std::uint32_t Experiment::paddle_bank_size(std::uint32_t bank) {
  return static_cast<std::uint32_t>(context().wavemaker_bank[bank].pad_pos.size());
}

std::string Experiment::paddle_bank_info(std::uint32_t bank, Base::Params& out) {
  const Common::Paddles& paddles = bank_of(context(), bank);
  const Common::Machine& machine = paddles.machine();
  out.insert("data_units", 0.0, machine.units());
  machine.get_limits(out);
  return paddles.name;
}

void Experiment::paddle_info(std::uint32_t bank, std::uint32_t paddle, Base::Params& out) {
  const Common::Paddles& paddles = bank_of(context(), bank);
  if (paddle >= paddles.pad_pos.size()) throw std::string("Paddle number out of range");
  const Common::PadPos& position = paddles.pad_pos[paddle];
  const double number = static_cast<double>(paddles.pad_pos.offset()) + paddle;
  out.insert("paddle_num", number, Base::default_units(Base::Category::unit));
  out.insert("x", position.x, Base::default_units(Base::Category::length));
  out.insert("y", position.y, Base::default_units(Base::Category::length));
  out.insert("angle", position.angle, Base::default_units(Base::Category::angle));
}

}  // namespace Kelpbox
