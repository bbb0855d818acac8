// Checks with every instruction set that the machine has.
#ifndef KELPBOX_TESTS_SUPPORT_EACH_TARGET_H_
#define KELPBOX_TESTS_SUPPORT_EACH_TARGET_H_

#include <gtest/gtest.h>
#include <hwy/highway.h>

#include <cstdint>

namespace Testing {

// Calls the check once with each instruction set chosen. A failure names it.
template <typename Check>
void on_each_target(Check check) {
  const auto choose = [](std::int64_t target) {
    hwy::SetSupportedTargetsForTest(target);
    hwy::GetChosenTarget().Update(hwy::SupportedTargets());
  };
  for (const std::int64_t target : hwy::SupportedAndGeneratedTargets()) {
    SCOPED_TRACE(hwy::TargetName(target));
    choose(target);
    check();
  }
  constexpr std::int64_t best = 0;
  choose(best);
}

}  // namespace Testing

#endif  // KELPBOX_TESTS_SUPPORT_EACH_TARGET_H_
