// Notes what an experiment is made of, so that it is known which results must be finite.
#include <algorithm>
#include <set>

#include "fuzz/native/session.h"

namespace Fuzz {
namespace {

bool sets_item(const std::string& name) {
  return name == "Kelpbox_Experiment_set__SWIG_1" || name == "setItem";
}

// Whether it adds something under an item.
bool adds_item(const std::string& name) {
  static const std::set<std::string> names = {"Kelpbox_Experiment_add_specification",
                                              "Kelpbox_Experiment_add_fronts",
                                              "Kelpbox_Experiment_add_single",
                                              "Kelpbox_Experiment_add_spectrum",
                                              "Kelpbox_Experiment_add_timeexp",
                                              "Kelpbox_Experiment_add_timeseries",
                                              "Kelpbox_Experiment_add_modifier",
                                              "addSpecification",
                                              "addFronts",
                                              "addSingle",
                                              "addSpectrum",
                                              "addTimeExpression",
                                              "addTimeSeries",
                                              "addModifier"};
  return names.count(name) != 0;
}

bool adds_record(const std::string& name) {
  return name == "Kelpbox_Analysis_add_series" || name == "Kelpbox_Analysis_create_set" ||
         name == "addSeries" || name == "createSet";
}

// The last argument of a function that adds something: a formula, or numbers.
bool is_made_of_tame(const Given& given) {
  switch (given.argument.kind) {
    case Kind::text:
    case Kind::bytes:
      return is_tame_formula(given.text);
    case Kind::reals:
      return std::all_of(given.list.begin(), given.list.end(),
                         [](const std::string& number) { return is_tame(real_of(number)); });
    case Kind::object:
      break;
    default:
      return true;
  }
  switch (given.argument.type) {
    case Type::fronts:
      return is_tame(*Kelpbox::pointer_from<Synthesis::DispFronts>(given.integer));
    case Type::vector:
      return is_tame(Kelpbox::pointer_from<Base::Vector>(given.integer)->data);
    case Type::doubles:
      return is_tame(*Kelpbox::pointer_from<std::vector<double>>(given.integer));
    default:
      return true;
  }
}

}  // namespace

void Session::note_before(const Row& row, const std::vector<Given>& given) {
  tame_given = std::all_of(given.begin(), given.end(), [](const Given& one) {
    const bool is_params = one.argument.kind == Kind::object && one.argument.type == Type::params;
    return !is_params || one.integer == 0 || is_tame(params_at(one.integer));
  });
  // Even a set that fails may keep some of the values.
  if (sets_item(row.name) && !tame_given) {
    sites_[given[0].integer].items.set(item_of(given), false);
  }
}

void Session::note_after(const Row& row, const std::vector<Given>& given,
                         const Returned& returned) {
  const std::string& name = row.name;
  if (name == "Kelpbox_Experiment_clear" || name == "clear") {
    sites_[given[0].integer].items = Items();
    sites_[given[0].integer].finite_signals.clear();
  } else if (name == "Kelpbox_Experiment_remove" || name == "remove") {
    sites_[given[0].integer].items.remove(item_of(given));
    sites_[given[0].integer].finite_signals.erase(item_of(given));
  } else if (sets_item(name)) {
    sites_[given[0].integer].items.set(item_of(given), tame_given);
  } else if (adds_item(name)) {
    sites_[given[0].integer].items.add(static_cast<std::uint32_t>(returned.integer), item_of(given),
                                       is_made_of_tame(given.back()));
  } else if (adds_record(name)) {
    Site& site = sites_[given[0].integer];
    site.wild_records = site.wild_records || !tame_given || !is_made_of_tame(given.back());
  }
}

}  // namespace Fuzz
