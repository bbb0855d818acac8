// A small tree of declared classes that tests read scripts into. Every field starts with a value,
// so a script may leave it out.
#ifndef KELPBOX_TESTS_SCRIPT_TEST_TREE_H_
#define KELPBOX_TESTS_SCRIPT_TEST_TREE_H_

#include <charconv>
#include <cstdint>
#include <string>
#include <vector>

#include "script/serialise.h"
#include "script/sub_enum.h"
#include "script/wrap.h"

namespace TestTree {

inline constexpr std::int32_t untouched = -999;
inline constexpr const char* untouched_text = "untouched";
inline const Script::Rule any_size{};
inline const Script::Rule optional_object{Script::SizeRule::at_most, 1, 0, 0};

// Lists the keys that a script has changed, one on each line, as "Tank.Section[2].width = 7". A
// number without a value is shown as `$`.
class Dump {
 public:
  void number(const std::string& key, double value) {
    if (value == untouched) return;
    char digits[64];
    const auto end = std::to_chars(digits, digits + sizeof digits, value);
    text_ += key + " = " + (value != value ? "$" : std::string(digits, end.ptr)) + "\n";
  }
  void number(const std::string& key, std::int32_t value) {
    if (value == untouched) return;
    text_ += key + " = " + (value == Script::NoInteger ? "$" : std::to_string(value)) + "\n";
  }
  void text(const std::string& key, const std::string& value) {
    if (value != untouched_text) text_ += key + " = \"" + value + "\"\n";
  }
  // An object or an element that exists.
  void block(const std::string& key) { text_ += key + "\n"; }
  const std::string& result() const { return text_; }

 private:
  std::string text_;
};

class Units : public Script::SubEnum {
 public:
  Units() { number = untouched; }
  Script::List& members() override {
    static Script::List list = make();
    return list;
  }

 private:
  static Script::List make() {
    Script::List list;
    list.member("metric", 0);
    list.member("imperial", 7);
    list.member("$local", -3);
    return list;
  }
};

class Layer : public Script::Declared {
 public:
  const char* class_name() const override { return "Layer"; }
  void declare(Script::List& list) override { list.fixed("depth", depth); }
  void dump(const std::string& key, Dump& out) const {
    out.block(key);
    out.number(key + ".depth", depth);
  }

  double depth = untouched;
};

template <typename T>
void dump_array(const std::string& key, const Script::WrapAry<T>& array, Dump& out) {
  for (std::size_t i = 0; i < array.size(); ++i) {
    const std::int64_t index = array.offset() + static_cast<std::int64_t>(i);
    array[i].dump(key + "[" + std::to_string(index) + "]", out);
  }
}

// A box may contain a box.
class Box : public Script::Declared {
 public:
  const char* class_name() const override { return "Box"; }
  void declare(Script::List& list) override {
    list.fixed("x", x);
    list.object("box", box);
  }
  void dump(const std::string& key, Dump& out) const {
    out.block(key);
    out.number(key + ".x", x);
    if (box.get()) box.get()->dump(key + ".box", out);
  }

  std::int32_t x = untouched;
  Script::WrapObj<Box> box{optional_object};
};

class Section : public Script::Declared {
 public:
  const char* class_name() const override { return "Section"; }
  void declare(Script::List& list) override {
    list.fixed("width", width);
    list.fixed("label", label);
    list.array("Layer", layer);
    list.object("box", box);
  }
  void dump(const std::string& key, Dump& out) const {
    out.block(key);
    out.number(key + ".width", width);
    out.text(key + ".label", label);
    dump_array(key + ".Layer", layer, out);
    if (box.get()) box.get()->dump(key + ".box", out);
  }

  double width = untouched;
  std::string label = untouched_text;
  Script::WrapAry<Layer> layer{any_size};
  Script::WrapObj<Box> box{optional_object};
};

// A script that opens this block must set all of it.
class Strict : public Script::Declared {
 public:
  Strict() { units.number = Script::UnsetInteger; }
  const char* class_name() const override { return "Strict"; }
  void declare(Script::List& list) override {
    list.fixed("real", real);
    list.adjustable("integer", integer);
    list.fixed("text", text);
    list.fixed("units", units);
    list.object("layer", layer);
    list.array("pair", pair);
  }
  void dump(const std::string& key, Dump& out) const {
    out.block(key);
    out.number(key + ".real", real);
    out.number(key + ".integer", integer);
    out.text(key + ".text", text);
    out.number(key + ".units", units.number);
    if (layer.get()) layer.get()->dump(key + ".layer", out);
    dump_array(key + ".pair", pair, out);
  }

  double real = Script::UnsetReal;
  std::int32_t integer = Script::UnsetInteger;
  std::string text = Script::UnsetString;
  Units units;
  Script::WrapObj<Layer> layer;
  Script::WrapAry<Strict> pair{{Script::SizeRule::at_most, 2, 0, 0}};
};

class Tank : public Script::Declared {
 public:
  const char* class_name() const override { return "Tank"; }
  void declare(Script::List& list) override {
    list.fixed("depth", depth);
    list.adjustable("gain", gain);
    list.fixed("count", count);
    list.adjustable("level", level);
    list.fixed("title", title);
    list.adjustable("note", note);
    list.fixed("units", units);
    list.adjustable("shown", shown);
    list.object("box", box);
    list.array("Section", section);
    list.object("strict", strict);
    list.array("few", few);
    list.array("from_one", from_one);
  }
  // The title can request a failure.
  void create() override {
    if (title == "throw item") throw problem("Create").add("bad value ").add(7u);
    if (title == "throw string") throw std::string("bad string");
    if (title == "throw text") throw "bad text";
  }
  std::string dump() const {
    Dump out;
    out.number("Tank.depth", depth);
    out.number("Tank.gain", gain);
    out.number("Tank.count", count);
    out.number("Tank.level", level);
    out.text("Tank.title", title);
    out.text("Tank.note", note);
    out.number("Tank.units", units.number);
    out.number("Tank.shown", shown.number);
    if (box.get()) box.get()->dump("Tank.box", out);
    dump_array("Tank.Section", section, out);
    if (strict.get()) strict.get()->dump("Tank.strict", out);
    dump_array("Tank.few", few, out);
    dump_array("Tank.from_one", from_one, out);
    return out.result();
  }

  double depth = untouched;
  double gain = untouched;
  std::int32_t count = untouched;
  std::int32_t level = untouched;
  std::string title = untouched_text;
  std::string note = untouched_text;
  Units units;
  Units shown;
  Script::WrapObj<Box> box{optional_object};
  Script::WrapAry<Section> section{any_size};
  Script::WrapObj<Strict> strict{optional_object};
  Script::WrapAry<Layer> few{{Script::SizeRule::at_most, 4, 0, 0}};
  Script::WrapAry<Layer> from_one{{Script::SizeRule::any, 0, 2, 1}};
};

}  // namespace TestTree

#endif  // KELPBOX_TESTS_SCRIPT_TEST_TREE_H_
