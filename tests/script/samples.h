// One variable of every type, with the fields that they refer to.
#ifndef KELPBOX_TESTS_SCRIPT_SAMPLES_H_
#define KELPBOX_TESTS_SCRIPT_SAMPLES_H_

#include <cstdint>
#include <string>
#include <vector>

#include "script/variable.h"
#include "script/wrap.h"
#include "test_tree.h"

namespace TestTree {

// Each variable is at the index of its type.
struct Samples {
  Samples() {
    all.emplace_back();
    all.emplace_back(std::int32_t{1});
    all.emplace_back(2.0);
    all.emplace_back(std::string("three"));
    all.emplace_back("four", 4);
    all.emplace_back(Script::VarType::adjustable_integer, "k5", &integer);
    all.emplace_back(Script::VarType::fixed_integer, "k6", &integer);
    all.emplace_back(Script::VarType::adjustable_real, "k7", &real);
    all.emplace_back(Script::VarType::fixed_real, "k8", &real);
    all.emplace_back(Script::VarType::adjustable_string, "k9", &text);
    all.emplace_back(Script::VarType::fixed_string, "k10", &text);
    all.emplace_back(Script::VarType::adjustable_enum, "k11", &units);
    all.emplace_back(Script::VarType::fixed_enum, "k12", &units);
    all.emplace_back("k13", static_cast<Script::BaseWrapObj*>(&object));
    all.emplace_back("k14", static_cast<Script::BaseWrapAry*>(&array));
  }

  std::int32_t integer = 50;
  double real = 70.5;
  std::string text = "ninety";
  Units units;
  Script::WrapObj<Layer> object;
  Script::WrapAry<Layer> array{any_size};
  std::vector<Script::Variable> all;
};

}  // namespace TestTree

#endif  // KELPBOX_TESTS_SCRIPT_SAMPLES_H_
