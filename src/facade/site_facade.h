// What both facades do with a site: read its script, and answer for its constants and its tank.
//
// A host's handle has one (facade.h), whichever facade it was made for.
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

  // Reads the site script and makes the tank ready; once, since the log can be attached only once.
  void initialise(const std::string& file);

  // These throw std::string as told in guard.h, with the fixed text alone before `initialise`.
  void get_consts(Base::Params& out);
  void query(Base::Params& out);
  // The depths along the tank at every "delta_x", which is read from the parameters.
  std::vector<double> profile(Base::Params& in);

  // Both throw the plain text "Object not built" until `initialise` has read a site.
  Common::Context& context();
  Common::Tank& tank();

 protected:
  ~SiteFacade() = default;

  std::uint32_t site_checksum() const { return reader_.checksum(); }

 private:
  std::string name_;
  Script::SimpleLog log_;  // before the reader, which keeps its address
  Common::SiteReader reader_;
  Common::Context* context_ = nullptr;  // the reader's, once a read has succeeded
  std::vector<double> profile_samples_;
};

}  // namespace Kelpbox

#endif  // KELPBOX_FACADE_SITE_FACADE_H_
