// The object that the handles of a Java host refer to.
//
// A Java host creates an experiment and an analysis with the same exported function, so one object
// serves as both, on one site. A C++ host uses Experiment and Analysis directly.
#ifndef KELPBOX_FACADE_FACADE_H_
#define KELPBOX_FACADE_FACADE_H_

#include <string>
#include <utility>

#include "facade/analysis.h"
#include "facade/experiment.h"

namespace Kelpbox {

class Facade : public Experiment, public Analysis {
 public:
  Facade() : Facade(std::string()) {}
  explicit Facade(std::string name)
      : Experiment(std::move(name)), Analysis(static_cast<SiteFacade&>(*this)) {}
};

}  // namespace Kelpbox

#endif  // KELPBOX_FACADE_FACADE_H_
