#include "support/test_site.h"

#include "maths/dispersion.h"
#include "support/temp_dir.h"

namespace Testing {
namespace {

// The script language has no exponents, so numbers are written in full.
std::string number(double value) {
  std::ostringstream text;
  text << std::fixed;
  text.precision(17);
  text << value;
  return text.str();
}

void write_bank(std::ostream& out, const BankText& bank) {
  out << "    name = \"bank\";\n    pad_pos[" << bank.paddles.size() << "..1];\n";
  for (std::size_t i = 0; i < bank.paddles.size(); ++i) {
    const Place& place = bank.paddles[i];
    out << "    pad_pos[" << i + 1 << "] { x = " << number(place.x) << "; y = " << number(place.y)
        << "; angle = " << number(place.angle) << "; }\n";
  }
  out << "    " << bank.machine << " {\n      paddle_width = " << number(bank.paddle_width)
      << "; critical_dimension = " << number(bank.critical_dimension)
      << "; dimension_type = " << bank.dimension_type
      << ";\n      paddle_motion { clip_limit = " << number(bank.clip_limit)
      << "; maximum = 1; minimum = -1; units = \"" << bank.units << "\"; }\n    }\n";
}

}  // namespace

SiteText sloping_site() {
  SiteText text;
  text.x_high = 30.0;
  text.breaks = {5.0};
  text.depths = {"1@m", "1-($[m]-5)*0.02@m"};
  return text;
}

double sloping_depth(double x) { return x < 5.0 ? 1.0 : 1.0 - (x - 5.0) * 0.02; }

std::string script(const SiteText& site) {
  std::ostringstream out;
  out << "context {\n  site_name = \"Site\"; tank_name = \"Tank\"; config_name = \"Config\";\n"
      << "  rate_units = Hz; base_rate = " << number(site.base_rate)
      << "; base_g = " << number(site.g) << "; base_rho = 1000;\n"
      << "  tank {\n    geometry = " << site.geometry
      << "; units = m; max_y = " << number(site.max_y) << "; min_y = " << number(site.min_y)
      << ";\n    section[" << site.depths.size() + 1 << "..1];\n";
  double x = site.x_low;
  for (std::size_t i = 0; i < site.depths.size(); ++i) {
    out << "    section[" << i + 1 << "] { x = " << number(x) << "; offset = Absolute; depth = \""
        << site.depths[i] << "\"; }\n";
    x = i < site.breaks.size() ? site.breaks[i] : site.x_high;
  }
  out << "    section[" << site.depths.size() + 1 << "] { x = " << number(site.x_high)
      << "; offset = Absolute; }\n  }\n"
      << "  limits {\n    frequency { units = \"Hz\"; maximum = " << number(site.max_freq)
      << "; minimum = " << number(site.min_freq) << "; }\n"
      << "    angle { units = \"deg\"; maximum = " << number(site.max_angle)
      << "; minimum = " << number(site.min_angle) << "; }\n  }\n"
      << "  wavemaker_bank[" << site.banks.size() << "..1];\n";
  for (std::size_t i = 0; i < site.banks.size(); ++i) {
    out << "  wavemaker_bank[" << i + 1 << "] {\n";
    write_bank(out, site.banks[i]);
    out << "  }\n";
  }
  out << "}\n";
  return out.str();
}

Site::Site(const SiteText& text, bool ready) {
  const TempDir dir;
  std::ostringstream report;
  reader_.attach_log(log_);
  reader_.read(report, dir.write("test.site", script(text)), "");
  if (ready) context().make_ready();
}

void NamedModifier::on_evaluate(const Base::Params&, Maths::FrontSet& fronts,
                                const Synthesis::RunContext& context) {
  std::size_t count = 0;
  for (const auto& slot : fronts.slots) count += slot.size();
  context.messages.push_back(name() + " finds " + std::to_string(count));
}

Base::Params at(double x, double y, double t) {
  Base::Params params;
  params.insert("x", x, "m");
  params.insert("y", y, "m");
  params.insert("t", t, "s");
  return params;
}

Base::Params run_params(double repeat, const std::string& wave_merge,
                        const std::string& dalrymple) {
  Base::Params params;
  params.insert("repeat", repeat, "s");
  params.insert("dalrymple", dalrymple, "Bool");
  params.insert("wave_merge", wave_merge, "WaveMerge");
  return params;
}

Base::Params rate_params(double rate) {
  Base::Params params;
  params.insert("rate", rate, "Hz");
  return params;
}

double wave_number(double omega, double depth, double g) { return Maths::knum(omega, depth, g); }

}  // namespace Testing
