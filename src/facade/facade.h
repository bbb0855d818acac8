// What the handle of an experiment and the handle of an analysis both refer to.
//
// Hosts make either with one and the same exported function, so that one object has to do the work
// of both, on one site.
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
