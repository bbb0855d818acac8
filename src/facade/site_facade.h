// The operations on a site that Experiment and Analysis share: reading the script, and reporting
// its constants, tunable values and depths.
#ifndef KELPBOX_FACADE_SITE_FACADE_H_
#define KELPBOX_FACADE_SITE_FACADE_H_

#include <string>
#include <vector>

#include "base/params.h"
#include "script/log.h"
#include "site/context.h"

namespace Kelpbox {

class SiteFacade {
 public:
  SiteFacade();
  explicit SiteFacade(std::string name);
  SiteFacade(const SiteFacade&) = delete;
  SiteFacade& operator=(const SiteFacade&) = delete;

  // These four convert failures as described in guard.h. Before `initialise`, the last three throw
  // their fixed message.

  // Reads the site script and makes the tank ready. Succeeds only once: the log can be attached to
  // the reader only once.
  void initialise(const std::string& file);
  void get_consts(Base::Params& out);
  // The tank's tunable values.
  void query(Base::Params& out);
  // The depths along the tank, "delta_x" apart. `in` holds "delta_x".
  std::vector<double> profile(Base::Params& in);

  // Both throw the character pointer "Object not built" until `initialise` has read a site.
  Common::Context& context();
  Common::Tank& tank();

 protected:
  std::uint32_t site_checksum() const { return reader_.checksum(); }

 private:
  std::string name_;
  Script::ProgressLog log_;  // declared before the reader, which keeps its address
  Common::SiteReader reader_;
  Common::Context* context_ = nullptr;  // owned by the reader; set when a read has succeeded
  std::vector<double> profile_samples_;
};

}  // namespace Kelpbox

#endif  // KELPBOX_FACADE_SITE_FACADE_H_
