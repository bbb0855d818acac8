// The facade of wave synthesis: one site, and a tree of definitions, specifications, components
// and modifiers that the host addresses by small integers.
//
// An ID is the item's place in the table; it rises by one with each item made and is not used
// again until `clear`. The facade owns every object; parents keep plain pointers. Failures are
// thrown as std::string, but for the plain text "Object not built" of whatever needs a site before
// one has been read. Not guarded: calls on one object come one at a time.
#ifndef KELPBOX_FACADE_EXPERIMENT_H_
#define KELPBOX_FACADE_EXPERIMENT_H_

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "base/params.h"
#include "base/vector.h"
#include "facade/site_facade.h"
#include "maths/front.h"
#include "maths/run_data.h"
#include "run/definition.h"
#include "sea/component.h"
#include "sea/modifier.h"
#include "sea/specification.h"

namespace Kelpbox {

enum ItemType : std::uint32_t {
  ItemNull = 0,
  ItemDefinition = 1,
  ItemSpecification = 2,
  ItemComponent = 3,
  ItemModifier = 4,
};

// One row of the table. The object of its type is there and no other.
struct ExperimentItem {
  ItemType type = ItemNull;
  std::uint32_t parent = 0;  // of all but definitions
  std::unique_ptr<Synthesis::Definition> definition;
  std::unique_ptr<Synthesis::Specification> specification;
  std::unique_ptr<Synthesis::Component> component;
  std::unique_ptr<Synthesis::Modifier> modifier;
  std::vector<std::uint32_t> children;  // in order of making
};

class Experiment : public SiteFacade {
 public:
  using SiteFacade::query;
  using SiteFacade::SiteFacade;

  // The site.

  std::string context_name();
  std::string context_string();
  // Takes the tunable values and makes the tank ready again. Values that are refused leave it
  // ready as it was; a failure to make it leaves it not ready.
  void set(Base::Params& in);
  std::uint32_t paddle_banks();
  // A bank out of range throws the Script::LogItm of the site's arrays.
  std::uint32_t paddle_bank_size(std::uint32_t bank);
  // Inserts "data_units" and the limits of the bank's machine, and returns the bank's name. Throws
  // "Paddle bank out of range".
  std::string paddle_bank_info(std::uint32_t bank, Base::Params& out);
  // Inserts "paddle_num", "x", "y", "angle". Also throws "Paddle number out of range".
  void paddle_info(std::uint32_t bank, std::uint32_t paddle, Base::Params& out);

  // The tree. Each `add_` returns the new item's ID, and leaves the table as it was when it fails.

  std::uint32_t add_definition(const std::string& name);
  std::uint32_t add_specification(std::uint32_t id);
  std::uint32_t add_fronts(std::uint32_t id, const Synthesis::DispFronts& fronts);
  std::uint32_t add_single(std::uint32_t id);
  std::uint32_t add_spectrum(std::uint32_t id, const std::string& name, const std::string& text);
  std::uint32_t add_timeexp(std::uint32_t id, const std::string& name, const std::string& text);
  // The vector is the host's and must outlive the component.
  std::uint32_t add_timeseries(std::uint32_t id, Base::Vector& vector);
  std::uint32_t add_modifier(std::uint32_t id, const std::string& type, const std::string& text);
  void query(std::uint32_t id, Base::Params& out);
  void set(std::uint32_t id, Base::Params& in);
  // Removes the item and everything made under it.
  void remove(std::uint32_t id);
  // Frees all items; IDs begin at 0 again. The site is kept.
  void clear();
  // Declares the parameters of the expressions in a text, which "#" separates.
  static void get_params(const std::string& text, Base::Params& out);

  // Runs. Each takes the ID of a definition, which owns what a reference result refers to.

  void run_build(std::uint32_t id);
  std::uint32_t run_size(std::uint32_t id);
  Maths::RunData& repeat(std::uint32_t id);
  Maths::Position& position(std::uint32_t id, std::uint32_t index);
  const std::vector<Maths::TransferFront>& fronts(std::uint32_t id, std::uint32_t index);
  const std::vector<Synthesis::Front>& fronts(std::uint32_t id, bool merged = true);
  std::vector<std::string> messages(std::uint32_t id);
  void paddle_motion_build(std::uint32_t id, Base::Params& in);
  const std::vector<double>& paddle_motion_data(std::uint32_t id, std::uint32_t bank,
                                                std::uint32_t paddle);
  void paddle_motion_stats(std::uint32_t id, std::uint32_t bank, Base::Params& out);
  void twod_build(std::uint32_t id, Base::Params& in);
  // Throws "Unsupported enum to experiment::twod_data".
  const std::vector<double>& twod_data(std::uint32_t id, std::int32_t which);
  void twod_stats(std::uint32_t id, Base::Params& out);

  // Animations. Each takes the ID of a definition, which owns the frames. From a second thread of
  // the host: `animate_progress`, `animate_ready` and `animate_stop`, while the first one builds.

  void animate_init(std::uint32_t id, Base::Params& in);
  void animate_build(std::uint32_t id, Base::Params& in);
  // The columns from `first` up to `last` - 1. The parameters are not read.
  void animate_build_slice(std::uint32_t id, const Base::Params& in, std::uint32_t first,
                           std::uint32_t last);
  const std::vector<std::int16_t>& animate_data(std::uint32_t id, std::uint32_t index);
  // The number of frames.
  std::uint32_t animate_size(std::uint32_t id);
  double animate_progress(std::uint32_t id);
  bool animate_ready(std::uint32_t id);
  void animate_stop(std::uint32_t id);
  void animate_free(std::uint32_t id);

 protected:
  // Give an object made elsewhere to a specification. Throw "ID out of range", and the object's
  // name with "::Trying to add to invalid type".
  std::uint32_t attach(std::uint32_t id, std::unique_ptr<Synthesis::Component> component);
  std::uint32_t attach(std::uint32_t id, std::unique_ptr<Synthesis::Modifier> modifier);

  // Each throws "ID out of range", and "Trying to access <type>" for an item of another type.
  Synthesis::Definition& definition(std::uint32_t id);
  Synthesis::Specification& specification(std::uint32_t id);
  Synthesis::Component& component(std::uint32_t id);
  Synthesis::Modifier& modifier(std::uint32_t id);

 private:
  // The item of that ID. Throws "ID out of range".
  ExperimentItem& item(std::uint32_t id);

  // The specification that takes an object of that name.
  Synthesis::Specification& parent_of(const std::string& name, std::uint32_t id);
  // Makes room, so that appending cannot fail once the parent has been told.
  void make_room(std::uint32_t parent);
  std::uint32_t append(ExperimentItem made, std::uint32_t parent);

  std::vector<ExperimentItem> items_;
  std::vector<std::uint32_t> definitions_;  // live ones, in order of making
};

}  // namespace Kelpbox

#endif  // KELPBOX_FACADE_EXPERIMENT_H_
