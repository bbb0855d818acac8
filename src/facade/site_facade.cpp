#include "facade/site_facade.h"

#include <utility>

#include "base/streams.h"
#include "base/units.h"
#include "facade/guard.h"

namespace Kelpbox {

SiteFacade::SiteFacade() : SiteFacade(std::string()) {}

SiteFacade::SiteFacade(std::string name) : name_(std::move(name)), reader_("context") {}

void SiteFacade::initialise(const std::string& file) {
  guarded("Uncaught Exception in Experiment Initialise", [&] {
    reader_.attach_log(log_);
    reader_.read(Base::script_faults(), file, "");
    context_ = reader_.object();
    context().make_ready();
  });
}

void SiteFacade::get_consts(Base::Params& out) {
  guarded("Uncaught Exception in Experiment get consts", [&] { context().get_consts(out); });
}

void SiteFacade::query(Base::Params& out) {
  guarded("Uncaught Exception in Experiment Query", [&] { tank().query(out); });
}

std::vector<double> SiteFacade::profile(Base::Params& in) {
  return guarded("Uncaught Exception in Experiment profile", [&] {
    const double delta_x = in.read("delta_x", Base::Category::length);
    context().tank_config().profile_samples(delta_x, profile_samples_);
    return profile_samples_;
  });
}

Common::Context& SiteFacade::context() {
  if (context_ == nullptr) throw "Object not built";
  return *context_;
}

Common::Tank& SiteFacade::tank() { return context().tank.built(); }

}  // namespace Kelpbox
