// The root of a site: one tank, its limits, its wavemaker banks.
//
// Each class of this folder declares its script keys in `declare`. docs/site-keys.md describes the
// keys. make_config.cpp lists the steps from a script to the tank's configuration.
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

// The rows of the limit table.
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

// Each value is in the base unit of its category.
using LimitTable = std::array<double, Limit::count>;

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
  // Fills the limit table and the full name, after the script has been read.
  void create() override;

  // Makes the tank's configuration. Throws Script::LogItm "Make ready called when already ready",
  // const char* "Object not built" without a tank, and what Tank::make_config throws.
  void make_ready();
  bool ready() const { return ready_; }
  // To be called when the tank changes: the configuration is out of date until the next make_ready.
  void clear_ready() { ready_ = false; }

  // Throws Script::LogItm "Attempting to access TankConfig when not made ready".
  const Maths::TankConfig& tank_config() const;
  // A row of the limit table. Throws std::string "type out of range" for any other index.
  double get(int index) const;
  // Inserts the constants of the tank and of the limits, then "base_rate" and "base_g".
  void get_consts(Base::Params& out);
  // The tank's member of the enumeration "Geometry".
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
  LimitTable limit_table_{};
  std::uint32_t geometry_ = 0;
  std::string full_name_;
};

// Reads a site script into a Context.
using SiteReader = Script::Serialise<Context>;

}  // namespace Common

#endif  // KELPBOX_SITE_CONTEXT_H_
