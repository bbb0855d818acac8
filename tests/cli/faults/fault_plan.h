// What a test and the preloaded failing_calls agree on, in a file that both map.
#ifndef KELPBOX_TESTS_CLI_FAULTS_FAULT_PLAN_H_
#define KELPBOX_TESTS_CLI_FAULTS_FAULT_PLAN_H_

namespace Testing {

struct FaultPlan {
  char folder[500];  // only what is below it counts
  long failing;      // the number of the call, from 1; none if it is 0
  int error;         // its errno; 0 kills all processes of the program instead
  bool stays;        // whether all later calls fail too

  long calls;        // how many there were
  char name[40];     // the call that failed
  char kinds[4000];  // the first letters of all names; the one of call 1 is kinds[1]
};

}  // namespace Testing

#endif  // KELPBOX_TESTS_CLI_FAULTS_FAULT_PLAN_H_
