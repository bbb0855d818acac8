#include "outputs/text_edits.h"

#include <gtest/gtest.h>

namespace Outputs {
namespace {

// After an edit of what lies from a place on line 2, column 5.
std::string edited(const std::string& value, std::uint32_t length) {
  TextEdits edits("# 1\na = " + value + "\n");
  edits.replace({nullptr, 2, 5, length}, "'new'");
  return edits.apply();
}

TEST(TextEdits, ReplaceAWholeString) {
  EXPECT_EQ(edited("'old' # 2", 5), "# 1\na = 'new' # 2\n");
  EXPECT_EQ(edited("\"\"\"old\"\"\"", 9), "# 1\na = 'new'\n");
}

TEST(TextEdits, LeaveStringsOfSeveralLines) {
  EXPECT_EQ(edited("'''\nold'''", 3), "# 1\na = '''\nold'''\n");
  EXPECT_EQ(edited("\"\"\"old\nold\"\"\"", 6), "# 1\na = \"\"\"old\nold\"\"\"\n");
}

TEST(TextEdits, LeaveWhatIsNoString) { EXPECT_EQ(edited("123", 3), "# 1\na = 123\n"); }

TEST(TextEdits, IgnorePlacesThatTheTextDoesNotHave) {
  TextEdits edits("'old'\n");
  edits.replace({nullptr, 0, 1, 5}, "'new'");
  edits.replace({nullptr, 3, 1, 5}, "'new'");
  EXPECT_EQ(edits.apply(), "'old'\n");
}

}  // namespace
}  // namespace Outputs
