#include "site/tank.h"

namespace Common {

Script::List& Section::Offset_enum::members() {
  static Script::List list = [] {
    Script::List members;
    members.member("Relative", Relative);
    members.member("Absolute", Absolute);
    return members;
  }();
  return list;
}

void Section::declare(Script::List& list) {
  list.fixed("x", x);
  list.fixed("offset", offset);
  list.fixed("depth", depth);
}

void Section::create() { function.parse(depth); }

void Param::declare(Script::List& list) {
  list.fixed("name", name);
  list.adjustable("value", value);
  list.fixed("max", max);
  list.fixed("min", min);
  list.fixed("error", error);
  list.fixed("units", units);
}

Script::List& Tank::Geometry_enum::members() {
  static Script::List list = [] {
    Script::List members;
    members.member("NoSides", NoSides);
    members.member("PlusSide", PlusSide);
    members.member("MinusSide", MinusSide);
    members.member("BothSides", BothSides);
    members.member("TwoDimensional", TwoDimensional);
    return members;
  }();
  return list;
}

Script::List& Tank::Units_enum::members() {
  static Script::List list = [] {
    Script::List members;
    members.member("mm", mm);
    members.member("m", m);
    members.member("ft", ft);
    members.member("yds", yds);
    return members;
  }();
  return list;
}

Tank::Tank() : section(Script::Rule::at_least(1).from(1)), param(Script::Rule::any().from(1)) {}

void Tank::declare(Script::List& list) {
  list.fixed("geometry", geometry);
  list.fixed("units", units);
  list.fixed("max_y", max_y);
  list.fixed("min_y", min_y);
  list.array("section", section);
  list.fixed("reference_x", reference_x);
  list.fixed("delta_depth", delta_depth);
  list.fixed("delta_x", delta_x);
  list.array("param", param);
}

void Tank::create() {
  const std::size_t count = section.size();
  if (count < 2) {
    throw problem("Create")
        .add("Insufficient sections ")
        .add(static_cast<unsigned>(count))
        .add(" in context");
  }
  const Section& last = section[count - 1];
  if (last.depth != Section::no_depth) {
    throw problem("Create")
        .add("Depth should not be specified for last section but is ")
        .add(last.depth);
  }
  min_x = section[0].x;
  max_x = last.x;
  if (reference_x < min_x || reference_x > max_x) {
    throw problem("Create")
        .add("Tank limits - ")
        .add(min_x)
        .add(":")
        .add(max_x)
        .add(" does not include reference postion ")
        .add(reference_x);
  }
  if (max_y < min_y) {
    throw problem("Create").add("Max Y ").add(max_y).add(" is less than Min Y ").add(min_y);
  }

  double previous = min_x;
  for (std::size_t i = 0; i + 1 < count; ++i) {
    const Section& here = section[i];
    const std::string title = "Section[" + std::to_string(section.index(i)) + "] ";
    if (here.depth == Section::no_depth) throw problem("Create").add(title).add("depth undefined");
    if (here.x < previous) {
      throw problem("Create").add(title).add(here.x).add(" in tank not sequential");
    }
    if (here.x > max_x) throw problem("Create").add(title).add(here.x).add("  out of range");
    previous = here.x;
  }
}

void Tank::get_consts(Base::Params& out) {
  const char* unit = nullptr;
  switch (units.number) {
    case Units_enum::mm:
      unit = "mm";
      break;
    case Units_enum::m:
      unit = "m";
      break;
    case Units_enum::ft:
      unit = "ft";
      break;
    case Units_enum::yds:
      // Kept on purpose: the unit table reads "yds" as yard seconds, which is not a length.
      unit = "yds";
      break;
    default:
      throw std::string("Unexpected angle units");
  }
  out.insert("min_x", section[0].x, unit);
  out.insert("max_x", section[section.size() - 1].x, unit);
  out.insert("max_y", max_y, unit);
  out.insert("min_y", min_y, unit);

  if (geometry.number < Geometry_enum::NoSides || geometry.number > Geometry_enum::TwoDimensional) {
    throw std::string("Unexpected type for Tank::Geometry");
  }
  out.insert("geometry", std::string(geometry.member_name()), std::string("Geometry"));

  for (std::size_t i = 0; i < param.size(); ++i) {
    const Param& entry = param[i];
    out.insert("max_" + entry.name, entry.max, entry.units);
    out.insert("min_" + entry.name, entry.min, entry.units);
  }
}

void Tank::query(Base::Params& out) {
  for (std::size_t i = 0; i < param.size(); ++i) {
    out.insert(param[i].name, param[i].value, param[i].units);
  }
}

void Tank::set(Base::Params& in) {
  for (std::size_t i = 0; i < param.size(); ++i) {
    param[i].value = in.get(param[i].name, param[i].units);
  }
}

}  // namespace Common
