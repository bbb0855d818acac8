#include <algorithm>
#include <utility>

#include "base/enumerations.h"
#include "expression/function.h"
#include "facade/experiment.h"
#include "facade/guard.h"
#include "facade/wave_modifiers.h"
#include "sea/piecewise_text.h"
#include "sea/set_fronts.h"
#include "sea/single.h"
#include "sea/spectrum.h"
#include "sea/time_exp.h"
#include "sea/time_series.h"

namespace Kelpbox {
namespace {

template <typename T>
void make_room_in(std::vector<T>& vector) {
  if (vector.size() == vector.capacity()) vector.reserve(2 * vector.size() + 4);
}

}  // namespace

// Items.

ExperimentItem& Experiment::item(std::uint32_t id) {
  if (id >= items_.size()) throw std::string("ID out of range");
  return items_[id];
}

Synthesis::Definition& Experiment::definition(std::uint32_t id) {
  if (item(id).type != ItemDefinition) throw std::string("Trying to access Definition");
  return *items_[id].definition;
}

Synthesis::Specification& Experiment::specification(std::uint32_t id) {
  if (item(id).type != ItemSpecification) throw std::string("Trying to access Specification");
  return *items_[id].specification;
}

Synthesis::Component& Experiment::component(std::uint32_t id) {
  if (item(id).type != ItemComponent) throw std::string("Trying to access Component");
  return *items_[id].component;
}

Synthesis::Modifier& Experiment::modifier(std::uint32_t id) {
  if (item(id).type != ItemModifier) throw std::string("Trying to access Modifier");
  return *items_[id].modifier;
}

// Adding.

std::uint32_t Experiment::add_definition(const std::string& name) {
  ExperimentItem made;
  made.type = ItemDefinition;
  made.definition = std::make_unique<Synthesis::Definition>(name, context());
  made.definition->set_executor(executor_);

  make_room_in(definitions_);
  const auto id = static_cast<std::uint32_t>(items_.size());
  items_.push_back(std::move(made));
  definitions_.push_back(id);
  return id;
}

std::uint32_t Experiment::add_specification(std::uint32_t id) {
  item(id);
  ExperimentItem made;
  made.type = ItemSpecification;
  made.specification = std::make_unique<Synthesis::Specification>();

  if (item(id).type != ItemDefinition) {
    throw std::string("Adding an Specification to invalid type");
  }
  make_room(id);
  definition(id).add_specification(*made.specification);
  return append(std::move(made), id);
}

std::uint32_t Experiment::add_fronts(std::uint32_t id, const Synthesis::DispFronts& fronts) {
  item(id);
  return attach(id, std::make_unique<Synthesis::SetFronts>(fronts));
}

std::uint32_t Experiment::add_single(std::uint32_t id) {
  item(id);
  return attach(id, std::make_unique<Synthesis::Single>());
}

std::uint32_t Experiment::add_spectrum(std::uint32_t id, const std::string& name,
                                       const std::string& text) {
  item(id);
  return attach(id, std::make_unique<Synthesis::Spectrum>(name, text));
}

std::uint32_t Experiment::add_timeexp(std::uint32_t id, const std::string& name,
                                      const std::string& text) {
  item(id);
  return attach(id, std::make_unique<Synthesis::TimeExp>(name, text));
}

std::uint32_t Experiment::add_timeseries(std::uint32_t id, Base::Vector& vector) {
  item(id);
  return attach(id, std::make_unique<Synthesis::TimeSeries>(vector));
}

std::uint32_t Experiment::add_modifier(std::uint32_t id, const std::string& type,
                                       const std::string& text) {
  const Base::EnumValue member = Base::make_enum("WaveMod", type);
  item(id);
  std::unique_ptr<Synthesis::Modifier> made = make_modifier(member, text);
  try {
    return attach(id, std::move(made));
  } catch (const std::string& failure) {
    throw "add_modifier::" + failure;
  }
}

std::uint32_t Experiment::attach(std::uint32_t id,
                                 std::unique_ptr<Synthesis::Component> component) {
  Synthesis::Specification& parent = parent_of(component->name(), id);
  make_room(id);
  parent.add_component(*component);
  ExperimentItem made;
  made.type = ItemComponent;
  made.component = std::move(component);
  return append(std::move(made), id);
}

std::uint32_t Experiment::attach(std::uint32_t id, std::unique_ptr<Synthesis::Modifier> modifier) {
  Synthesis::Specification& parent = parent_of(modifier->name(), id);
  make_room(id);
  parent.add_modifier(*modifier);
  ExperimentItem made;
  made.type = ItemModifier;
  made.modifier = std::move(modifier);
  return append(std::move(made), id);
}

Synthesis::Specification& Experiment::parent_of(const std::string& name, std::uint32_t id) {
  if (item(id).type != ItemSpecification) throw name + "::Trying to add to invalid type";
  return specification(id);
}

void Experiment::make_room(std::uint32_t parent) {
  make_room_in(items_[parent].children);
  make_room_in(items_);
}

std::uint32_t Experiment::append(ExperimentItem made, std::uint32_t parent) {
  const auto id = static_cast<std::uint32_t>(items_.size());
  made.parent = parent;
  items_[parent].children.push_back(id);
  items_.push_back(std::move(made));
  return id;
}

// Parameters.

void Experiment::query(std::uint32_t id, Base::Params& out) {
  switch (item(id).type) {
    case ItemDefinition:
      return definition(id).query(out);
    case ItemSpecification:
      return specification(id).query(out);
    case ItemComponent:
      return component(id).query(out);
    case ItemModifier:
      return modifier(id).query(out);
    case ItemNull:
      break;
  }
  throw std::string("Trying to query an inactive type");
}

void Experiment::set(std::uint32_t id, Base::Params& in) {
  switch (item(id).type) {
    case ItemDefinition:
      return definition(id).set(in);
    case ItemSpecification:
      return specification(id).set(in);
    case ItemComponent:
      return component(id).set(in);
    case ItemModifier:
      return modifier(id).set(in);
    case ItemNull:
      break;
  }
  // The word is the same as in `query` on purpose: hosts match on it.
  throw std::string("Trying to query an inactive type");
}

void Experiment::get_params(const std::string& text, Base::Params& out) {
  if (text.empty()) return;
  for (const std::string& piece : Synthesis::split_pieces(text)) {
    Expression::Function(piece.substr(0, piece.find('@'))).declare(out);
  }
}

// Removing.

void Experiment::remove(std::uint32_t id) {
  const ItemType type = item(id).type;
  if (type == ItemNull) throw std::string("removing item of type NULL");
  if (type == ItemDefinition) {
    const auto found = std::find(definitions_.begin(), definitions_.end(), id);
    if (found == definitions_.end()) {
      throw std::string("Missing container from experiment list!");
    }
    definitions_.erase(found);
  }
  for (const std::uint32_t child : items_[id].children) {
    if (items_[child].type != ItemNull) remove(child);
  }

  ExperimentItem& removed = items_[id];
  switch (type) {
    case ItemSpecification:
      definition(removed.parent).remove_specification(*removed.specification);
      break;
    case ItemComponent:
      specification(removed.parent).remove_component(*removed.component);
      break;
    case ItemModifier:
      specification(removed.parent).remove_modifier(*removed.modifier);
      break;
    case ItemDefinition:
    case ItemNull:
      break;
  }
  removed.definition.reset();
  removed.specification.reset();
  removed.component.reset();
  removed.modifier.reset();
  removed.type = ItemNull;
}

void Experiment::clear() {
  guarded("Uncaught Exception in Experiment clear", [&] {
    definitions_.clear();
    items_.clear();
  });
}

}  // namespace Kelpbox
