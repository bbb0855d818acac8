// The script language, with a small tree that has every kind of field, array and object. The input
// is described in script_reading.h.
//
// The properties: a refusal says what is wrong. A script that is read is written as a script that
// reads back the same, and its settings file keeps the adjustable fields.
#include "fuzz/script_reading.h"
#include "script/division.h"
#include "script/test_tree.h"

namespace {

// Enumerations start with a member, so that each tree can be written.
class Tank : public TestTree::Tank {
 public:
  Tank() {
    units.number = 0;
    shown.number = 7;
  }
};

void check(const std::string& input) {
  static const Testing::TempDir dir;
  const std::string main_path = Fuzz::write_files(input, dir);
  // Without it a division of an integer by zero ends the process, as intended.
  const Script::DivisionScope scope;
  const Fuzz::Reading<Tank> script("Tank", main_path);
  if (script.refused) {
    check_refusal(script);
  } else if (Fuzz::has_moderate_reals(script.list())) {
    check_written(script, main_path, dir);
  }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const Fuzz::Quiet quiet;
  const std::string input(reinterpret_cast<const char*>(data), size);
  if (!Fuzz::unsuitable_script(input)) check(input);
  return 0;
}
