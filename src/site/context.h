// The root of a site: one tank, its limits, its wavemaker banks.
//
// Reading a script fills the keys and the limit table; make_ready adds the tank's configuration,
// on which all calculation stands.
#ifndef KELPBOX_SITE_CONTEXT_H_
#define KELPBOX_SITE_CONTEXT_H_

#include <array>
#include <cstdint>
#include <string>

#include "base/params.h"
#include "maths/tank_config.h"
#include "script/serialise.h"
#include "script/sub_enum.h"
#include "script/wrap.h"
#include "site/limits.h"
#include "site/paddles.h"
#include "site/tank.h"

namespace Common {

// Rows of the limit table, each in the base unit of its category.
namespace Limit {
inline constexpr int max_x = 0;
inline constexpr int min_x = 1;
inline constexpr int max_y = 2;
inline constexpr int min_y = 3;
inline constexpr int base_g = 4;
inline constexpr int base_rate = 5;
inline constexpr int max_freq = 6;
inline constexpr int min_freq = 7;
inline constexpr int max_angle = 8;
inline constexpr int min_angle = 9;
inline constexpr int count = 10;
}  // namespace Limit

class Context : public Script::Declared {
 public:
  class Units_enum : public Script::SubEnum {
   public:
    enum { Hz = 0, rad_s = 1 };
    Script::List& members() override;
  };

  Context();

  const char* class_name() const override { return "Context"; }
  void declare(Script::List& list) override;
  // Fills the limit table and the full name.
  void create() override;

  // Makes the tank's configuration. Throws Script::LogItm "Make ready called when already ready".
  void make_ready();
  bool ready() const { return ready_; }
  // Before the tank is changed: the configuration is out of date until the next make_ready.
  void clear_ready() { ready_ = false; }

  // Throws Script::LogItm "Attempting to access TankConfig when not made ready".
  const Maths::TankConfig& tank_config() const;
  // A row of the limit table. Throws std::string "type out of range" for 10 or more.
  double get(int index) const;
  void get_consts(Base::Params& out);
  // The member of the enumeration "Geometry" that the tank has.
  std::uint32_t geometry() const { return geometry_; }

  // The tank's name, a blank, the configuration's name.
  const std::string& full_name() const { return full_name_; }
  // "<site>::<tank>::<config>#0x<checksum>".
  std::string identity(std::uint32_t checksum) const;

  std::string site_name = Script::UnsetString;
  std::string tank_name = Script::UnsetString;
  std::string config_name = Script::UnsetString;
  Script::WrapObj<Tank> tank;
  Script::WrapObj<FixedLimits> limits;
  Script::WrapAry<Paddles> wavemaker_bank;
  Units_enum rate_units;
  double base_rate = Script::UnsetReal;
  double base_g = Script::UnsetReal;
  double base_rho = Script::UnsetReal;

 private:
  Maths::TankConfig tank_config_;
  bool ready_ = false;
  std::array<double, Limit::count> limit_table_{};
  std::uint32_t geometry_ = 0;
  std::string full_name_;
};

// Reads a site script into a Context.
using SiteReader = Script::Serialise<Context>;

}  // namespace Common

#endif  // KELPBOX_SITE_CONTEXT_H_
