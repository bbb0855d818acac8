#include "jobs/read_toml.h"

#include <toml++/toml.h>

#include <algorithm>
#include <string_view>
#include <tuple>
#include <utility>

#include "jobs/diagnostic.h"
#include "jobs/text_places.h"
#include "jobs/toml_bounds.h"
#include "jobs/toml_fault.h"

namespace Jobs {
namespace {

TextPlace place_of(const toml::source_position& position) {
  return {position.line, position.column};
}

class Converter {
 public:
  explicit Converter(const TextPlaces& places) : places_(places) {}

  Value value(const toml::node& node) const {
    Value result;
    result.span = span(node.source());
    if (const toml::table* table = node.as_table()) {
      result.kind = Value::Kind::table;
      result.members = members(*table);
    } else if (const toml::array* array = node.as_array()) {
      result.kind = Value::Kind::array;
      for (const toml::node& item : *array) {
        result.items.push_back(value(item));
      }
    } else if (const auto* text = node.as_string()) {
      result.kind = Value::Kind::text;
      result.text = text->get();
    } else if (const auto number = node.value<double>(); node.is_number() && number) {
      result.kind = Value::Kind::number;
      result.number = *number;
    } else if (const auto* boolean = node.as_boolean()) {
      result.kind = Value::Kind::boolean;
      result.boolean = boolean->get();
    } else {
      result.kind = Value::Kind::other;
    }
    return result;
  }

 private:
  Span span(const toml::source_region& region) const {
    return places_.span(place_of(region.begin), place_of(region.end));
  }

  // The parser's tables are in the order of their keys.
  std::vector<Member> members(const toml::table& table) const {
    std::vector<Member> result;
    result.reserve(table.size());
    for (const auto& [key, node] : table) {
      result.push_back({std::string(key.str()), span(key.source()), value(node)});
    }
    std::sort(result.begin(), result.end(), [](const Member& a, const Member& b) {
      return std::tie(a.key_span.line, a.key_span.column) <
             std::tie(b.key_span.line, b.key_span.column);
    });
    return result;
  }

  const TextPlaces& places_;
};

}  // namespace

Value read_toml(const std::shared_ptr<const SourceText>& source) {
  const TextPlaces places(source);
  if (const auto broken = find_broken_bound(source->text)) {
    throw bad_job(broken->fault, places.span_at(broken->byte, 1), broken->label);
  }
  try {
    const toml::table table = toml::parse(std::string_view(source->text), std::string_view());
    return Converter(places).value(table);
  } catch (const toml::parse_error& error) {
    throw BadJob{
        {syntax_fault(places, place_of(error.source().begin), std::string(error.description()))}};
  }
}

}  // namespace Jobs
