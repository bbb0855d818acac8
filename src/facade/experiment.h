// Wave synthesis: one site, and a tree of definitions, specifications, components and modifiers,
// which the host addresses by ID.
//
// An ID is the item's index in a table. Each new ID is one higher than the last, and no ID is used
// again until `clear`. The experiment owns all objects; parents keep plain pointers to children.
//
// The guarded operations convert every failure as described in guard.h: `set` of the site, `clear`,
// `run_build`, `messages`, `twod_build`, `twod_stats`, `animate_init`, `animate_build` and
// `animate_build_slice`. The others throw std::string, or the character pointer "Object not built"
// if they need a site and none has been read. Calls on one object must come one at a time.
#ifndef KELPBOX_FACADE_EXPERIMENT_H_
#define KELPBOX_FACADE_EXPERIMENT_H_

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "base/executor.h"
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

// One row of the table. Only the object that matches `type` is set.
struct ExperimentItem {
  ItemType type = ItemNull;
  std::uint32_t parent = 0;  // not used by definitions
  std::unique_ptr<Synthesis::Definition> definition;
  std::unique_ptr<Synthesis::Specification> specification;
  std::unique_ptr<Synthesis::Component> component;
  std::unique_ptr<Synthesis::Modifier> modifier;
  std::vector<std::uint32_t> children;  // in order of creation
};

class Experiment : public SiteFacade {
 public:
  using SiteFacade::query;
  using SiteFacade::SiteFacade;

  // How many threads build drive signals and animations, the calling one included: one unless set,
  // and 0 counts as 1. Also for definitions that exist already, but not while an animation is
  // built. Results, messages and lines on the standard output are the same for every number. Each
  // worker needs working memory of its own.
  void set_workers(unsigned workers);
  unsigned workers() const { return executor_.workers(); }

  // The site.

  std::string context_name();
  std::string context_string();
  // Sets the tank's tunable values and makes the tank ready again. If a value is refused, the tank
  // stays ready as it was. If no tank can be made from the values, it is not ready.
  void set(Base::Params& in);
  std::uint32_t paddle_banks();
  // Throws the Script::LogItm of the site's arrays if the bank is out of range.
  std::uint32_t paddle_bank_size(std::uint32_t bank);
  // Inserts "data_units" and the limits of the bank's machine, and returns the bank's name. Throws
  // "Paddle bank out of range".
  std::string paddle_bank_info(std::uint32_t bank, Base::Params& out);
  // Inserts "paddle_num", "x", "y", "angle". Also throws "Paddle number out of range".
  void paddle_info(std::uint32_t bank, std::uint32_t paddle, Base::Params& out);

  // The tree. Each `add_...` returns the new item's ID. If it fails, the table stays unchanged.

  std::uint32_t add_definition(const std::string& name);
  std::uint32_t add_specification(std::uint32_t id);
  std::uint32_t add_fronts(std::uint32_t id, const Synthesis::DispFronts& fronts);
  std::uint32_t add_single(std::uint32_t id);
  std::uint32_t add_spectrum(std::uint32_t id, const std::string& name, const std::string& text);
  std::uint32_t add_timeexp(std::uint32_t id, const std::string& name, const std::string& text);
  // The component keeps a pointer to the vector, which must outlive it.
  std::uint32_t add_timeseries(std::uint32_t id, Base::Vector& vector);
  std::uint32_t add_modifier(std::uint32_t id, const std::string& type, const std::string& text);
  void query(std::uint32_t id, Base::Params& out);
  void set(std::uint32_t id, Base::Params& in);
  // Removes the item and everything that was added under it.
  void remove(std::uint32_t id);
  // Frees all items and keeps the site. IDs begin at 0 again.
  void clear();
  // Declares the parameters of the formulas in the text, which are separated by "#".
  static void get_params(const std::string& text, Base::Params& out);

  // Runs. Each takes the ID of a definition, which owns every object returned by reference.

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

  // Animations. Each takes the ID of a definition, which owns the frames. While one thread builds,
  // a second one may call `animate_progress`, `animate_ready` and `animate_stop`.

  void animate_init(std::uint32_t id, Base::Params& in);
  void animate_build(std::uint32_t id, Base::Params& in);
  // Builds the columns from `first` to `last` - 1. The parameters are not read.
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
  // Add an object to the specification `id`. Throw "ID out of range", and the object's name
  // followed by "::Trying to add to invalid type".
  std::uint32_t attach(std::uint32_t id, std::unique_ptr<Synthesis::Component> component);
  std::uint32_t attach(std::uint32_t id, std::unique_ptr<Synthesis::Modifier> modifier);

  // Each throws "ID out of range", or "Trying to access <type>" for an item of another type.
  Synthesis::Definition& definition(std::uint32_t id);
  Synthesis::Specification& specification(std::uint32_t id);
  Synthesis::Component& component(std::uint32_t id);
  Synthesis::Modifier& modifier(std::uint32_t id);

 private:
  // Throws "ID out of range".
  ExperimentItem& item(std::uint32_t id);

  // The specification `id`, as the parent of an object with this name.
  Synthesis::Specification& parent_of(const std::string& name, std::uint32_t id);
  // Reserves memory, so that `append` cannot fail after the parent has received the object.
  void make_room(std::uint32_t parent);
  std::uint32_t append(ExperimentItem made, std::uint32_t parent);

  Base::Executor executor_;
  std::vector<ExperimentItem> items_;
  std::vector<std::uint32_t> definitions_;  // those not removed, in order of creation
};

}  // namespace Kelpbox

#endif  // KELPBOX_FACADE_EXPERIMENT_H_
