// Site scripts. The input is the text of the main script. A line "--- file NAME" begins the text of
// another file, which the script can include.
//
// The properties: a refusal says what is wrong, through the facade too. A site that is read is
// written as a script that reads back the same, and its settings file keeps its tunable values. A
// site of finite numbers has a finite depth profile and finite paddles, and accepts its own values.
#include <cctype>
#include <cmath>
#include <filesystem>
#include <sstream>

#include "facade/experiment.h"
#include "fuzz/property.h"
#include "script/division.h"
#include "script/print.h"
#include "site/context.h"
#include "support/temp_dir.h"

namespace {

using Fuzz::refusal;
using Fuzz::require;

constexpr const char* guarded = "Uncaught Exception in Experiment Initialise";

// Writes the files that the input consists of into the directory, and returns the main one's path.
std::string write_files(const std::string& input, const Testing::TempDir& dir) {
  std::string name = "main.site";
  std::string contents;
  std::istringstream lines(input);
  const std::string marker = "--- file ";
  for (std::string line; std::getline(lines, line);) {
    if (line.rfind(marker, 0) == 0) {
      dir.write(name, contents);
      contents.clear();
      name.clear();
      for (const char c : line.substr(marker.size())) {
        if (std::isalnum(static_cast<unsigned char>(c)) || c == '_') name += c;
      }
      name += ".site";
    } else {
      contents += line + '\n';
    }
  }
  dir.write(name, contents);
  return dir.file("main.site");
}

// Strings are written up to their first zero character.
bool has_zero(const std::string& input) { return input.find('\0') != std::string::npos; }

// Whether an array of the script could have hundreds of elements or more, which takes seconds. Huge
// bounds are refused at once, so they are left in.
bool slow_arrays(const std::string& input) {
  for (std::size_t open = input.find('['); open != std::string::npos;
       open = input.find('[', open + 1)) {
    const std::string bounds = input.substr(open, input.find(']', open) - open);
    std::size_t digits = 0;
    for (const char c : bounds + ' ') {
      if (std::isdigit(static_cast<unsigned char>(c))) {
        ++digits;
        continue;
      }
      if ((digits > 2 && digits < 7) || c == '*' || c == 'x' || c == 'X' || c == '#') return true;
      digits = 0;
    }
  }
  return false;
}

// One reading of a site, whether or not it succeeds.
class Reading {
 public:
  explicit Reading(const std::string& main_path, const std::string& second_path = "") {
    root_.object("context", context_);
    reader_.attach_log(log_);
    refused = refusal([&] { reader_.read(report_, main_path, second_path); });
  }

  std::string report() const { return report_.str(); }
  std::string log() const { return log_text_.str(); }
  const Script::List& root() const { return root_; }
  Common::Context& context() const { return context_.built(); }
  std::uint32_t checksum() const { return reader_.checksum(false); }
  std::string written(bool adjustable_only) const {
    std::ostringstream out;
    print(root_, out, adjustable_only, 0);
    return out.str();
  }

  std::optional<std::string> refused;

 private:
  std::ostringstream report_;
  std::ostringstream log_text_;
  Script::SimpleLog log_{log_text_};
  Script::WrapObj<Common::Context> context_;
  Script::List root_;
  Script::SubSerial reader_{"context", context_};
};

bool ends(const std::string& text, const std::string& end) {
  return text.size() >= end.size() && text.compare(text.size() - end.size(), end.size(), end) == 0;
}

// Whether all reals are numbers far from overflow in any units.
bool moderate(const Script::List& list) {
  for (const Script::Variable& item : list.items()) {
    if (item.type() == Script::VarType::object) {
      if (!moderate(item.as_object().list())) return false;
    } else if (item.type() == Script::VarType::array) {
      for (const Script::List& element : item.as_array().lists()) {
        if (!moderate(element)) return false;
      }
    } else if (Script::is_real_field(item.type())) {
      if (!(std::abs(item.real_field()) < 1e30)) return false;
    }
  }
  return true;
}

void check_written_back(const Reading& site, const Testing::TempDir& dir) {
  const std::string text = site.written(false);
  // A minus zero is read as the integer 0.
  if (text.find("= -0;") != std::string::npos) return;
  const Reading again(dir.write("written.site", text));
  require(!again.refused, "a written site is accepted");
  require(again.written(false) == text, "a written site reads back the same");
  require(again.checksum() == site.checksum(), "a written site has the same checksum");
}

void check_settings(const std::string& main_path, const Reading& site,
                    const Testing::TempDir& dir) {
  const std::string settings = site.written(true);
  if (settings.find("= -0;") != std::string::npos) return;
  const Reading again(main_path, dir.write("settings.site", settings));
  require(!again.refused, "the settings file of a site is accepted");
  require(again.written(true) == settings, "the settings file keeps the tunable values");
}

// A formula without a variable may give a depth of NaN or infinity.
bool depth_is_defined(const Common::Tank& tank) {
  for (std::size_t i = 0; i + 1 < tank.section.size(); ++i) {
    const Expression::Function& function = tank.section[i].function;
    double depth = 0.0;
    const Base::Quantity variable(0.0, Base::Category::length);
    const bool failed = refusal([&] { depth = function.evaluate(variable).value; }).has_value();
    if (failed || !std::isfinite(depth)) return false;
  }
  return true;
}

void check_profile(Common::Context& context) {
  const Maths::TankConfig& config = context.tank_config();
  require(!config.profile.empty(), "a tank has a depth profile");
  require(config.paddle_index < config.profile.size(), "the paddle line is in the profile");
  const bool defined = depth_is_defined(*context.tank.get());
  for (const auto& point : config.profile) {
    require(std::isfinite(point.x), "each point of the profile has a position");
    require(!defined || std::isfinite(point.depth), "each point of the profile has a depth");
  }
  for (int row = 0; row < Common::Limit::count; ++row) {
    require(std::isfinite(context.get(row)), "each limit is finite");
  }
}

void check_paddles(Kelpbox::Experiment& experiment) {
  require(experiment.paddle_banks() > 0, "a site has a bank");
  for (std::uint32_t bank = 0; bank < experiment.paddle_banks(); ++bank) {
    Base::Params info;
    // Units and names of the script are only looked at here.
    refusal([&] { experiment.paddle_bank_info(bank, info); });
    require(experiment.paddle_bank_size(bank) > 0, "a bank has paddles");
    for (std::uint32_t paddle = 0; paddle < experiment.paddle_bank_size(bank); ++paddle) {
      Base::Params place;
      experiment.paddle_info(bank, paddle, place);
      require(place.read("paddle_num", Base::Category::unit) == paddle + 1.0,
              "paddles are numbered from 1");
      for (const auto& [name, quantity] : place.entries()) {
        require(std::isfinite(quantity.value), "the place of a paddle is finite");
      }
    }
  }
}

// A tank that is given back its own values is unchanged.
void check_own_values(Kelpbox::Experiment& experiment) {
  Base::Params values;
  if (refusal([&] { experiment.query(values); })) return;
  const auto refused = refusal([&] { experiment.set(values); });
  require(!refused, "a tank accepts its own values");
  Base::Params again;
  experiment.query(again);
  require(values.entries().size() == again.entries().size(), "a tank keeps its values");
  for (const auto& [name, quantity] : values.entries()) {
    require(Fuzz::same_bits(quantity.value, again.at(name).value), "a tank keeps its values");
  }
}

void check_facade(const std::string& main_path, const Reading& site) {
  Kelpbox::Experiment experiment;
  const auto refused = refusal([&] { experiment.initialise(main_path); });
  if (site.refused) {
    require(refused == site.refused || refused == std::string(guarded),
            "the facade passes a message on, or gives its own");
    return;
  }
  if (refused || !moderate(site.root())) return;
  check_profile(experiment.context());
  check_paddles(experiment);
  check_own_values(experiment);
}

void check(const std::string& input) {
  static const Testing::TempDir dir;
  for (const auto& left : std::filesystem::directory_iterator(dir.path())) {
    std::filesystem::remove(left);
  }
  const std::string main_path = write_files(input, dir);
  // Without it a division of an integer by zero ends the process, as intended.
  const Script::DivisionScope scope;
  const Reading site(main_path);
  if (site.refused) {
    require(!ends(*site.refused, "::Failed to verify") || !site.report().empty(),
            "missing keys are reported");
    require(*site.refused != "Caught log exception" || !site.log().empty(),
            "the log says why a site is refused");
  } else if (moderate(site.root())) {
    check_written_back(site, dir);
    check_settings(main_path, site, dir);
  }
  check_facade(main_path, site);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const Fuzz::Quiet quiet;
  const std::string input(reinterpret_cast<const char*>(data), size);
  if (!has_zero(input) && !slow_arrays(input)) check(input);
  return 0;
}
