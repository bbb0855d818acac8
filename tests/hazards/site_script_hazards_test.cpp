// Site scripts.
#include <sys/stat.h>

#include <string>

#include "facade/site_facade.h"
#include "flume_run.h"
#include "hazard.h"

namespace Testing {
namespace {

std::string opened(const std::string& path) {
  Kelpbox::SiteFacade site;
  site.initialise(path);
  return "opened";
}

std::string flume_text() {
  std::ifstream in(flume_site);
  std::ostringstream text;
  text << in.rdbuf();
  return text.str();
}

using Text = std::function<std::string()>;

Text fixed(const std::string& text) {
  return [text] { return text; };
}

// The flume with a part of its script replaced.
Hazard changed(const std::string& name, const std::string& from, const Text& to,
               const std::string& expected) {
  return {name, in_folder([=](const TempDir& folder) {
            std::string text = flume_text();
            const std::size_t at = text.find(from);
            if (at == text.npos) return "the script has no " + from;
            text.replace(at, from.size(), to());
            std::filesystem::copy(TEST_ROOT "/../examples/common", folder.file("common"));
            return opened(folder.write("main.site", text));
          }),
          expected};
}

Hazard changed(const std::string& name, const std::string& from, const std::string& to,
               const std::string& expected) {
  return changed(name, from, fixed(to), expected);
}

// A script of its own.
Hazard script(const std::string& name, const Text& of_script, const std::string& expected) {
  return {name, in_folder([=](const TempDir& folder) {
            folder.write("loop.site", "include \"loop.site\"");
            folder.write("there.site", "include \"back.site\"");
            folder.write("back.site", "include \"there.site\"");
            mkfifo(folder.file("fifo").c_str(), 0600);
            return opened(folder.write("main.site", of_script()));
          }),
          expected};
}

Hazard file(const std::string& name, const std::string& path, const std::string& expected) {
  return {name, in_folder([=](const TempDir& folder) {
            mkfifo(folder.file("fifo").c_str(), 0600);
            return opened(path.empty() ? folder.path() : path[0] == '/' ? path : folder.file(path));
          }),
          expected};
}

const std::string base_rate = "base_rate = 50;";
const std::string pads = "pad_pos[1..1]";

const Rows rows = {
    changed("ABillionPaddles", pads, "pad_pos[1000000000..1]",
            "Array of 1000000000 elements is too large: at most 100000 can be made at once"),
    changed("ABillionPaddlesFromANegativeIndex", pads, "pad_pos[1..-1000000000]",
            "Array of 1000000002 elements is too large: at most 100000 can be made at once"),
    changed("AHundredThousandPaddles", pads, "pad_pos[100000..1]",
            "Array of 100001 elements is too large: at most 100000 can be made at once"),
    changed("ABillionTunables", "param[2..1];", "param[1000000000..1];",
            "Array of 1000000000 elements is too large: at most 100000 can be made at once"),
    script("AScriptThatIncludesItself", fixed("include \"loop.site\""),
           "File \"<folder>/loop.site\" includes itself"),
    script("TwoScriptsThatIncludeEachOther", fixed("include \"there.site\""),
           "File \"<folder>/there.site\" includes itself through \"<folder>/back.site\""),
    script("AnIncludedFifo", fixed("include \"fifo\""), "File \"<folder>/fifo\" does not exist"),
    script("AnIncludedDevice", fixed("include \"/dev/zero\""),
           "File \"<folder>/dev/zero\" does not exist"),
    script("AnIncludedFolder", fixed("include \".\""), "File \"<folder>/.\" does not exist"),
    file("AFifo", "fifo", "File \"<folder>/fifo\" does not exist"),
    file("ADevice", "/dev/zero", "File \"/dev/zero\" does not exist"),
    file("AFolder", "", "File \"<folder>\" does not exist"),
    file("TheMemoryOfTheProcess", "/proc/self/mem", "Uncaught Exception in Experiment Initialise"),
    changed(
        "FortyMegabytesOfComments", base_rate,
        [] { return base_rate + repeated("\n# a comment", 3'333'333); }, "opened"),
    changed(
        "FortyMegabytesOfBlanks", base_rate,
        [] { return base_rate + std::string(40'000'000, ' '); }, "opened"),
    script(
        "TenMegabytesOfUnknownCharacters", [] { return std::string(10'000'000, '@'); },
        "Uncaught Exception in Experiment Initialise"),
    script(
        "TenMegabytesOfZeroBytes", [] { return std::string(10'000'000, '\0'); },
        "Uncaught Exception in Experiment Initialise"),
    changed("TenMegabytesOfStatements", base_rate, repeated("base_rate=50;\n", 714'285), "opened"),
    changed("TenMegabytesOfSemicolons", base_rate, "base_rate=50" + std::string(10'000'000, ';'),
            "opened"),
    changed("AMillionBrackets", "50;",
            std::string(1'000'000, '(') + "50" + std::string(1'000'000, ')') + ";",
            "<folder>/main.site::parse error"),
    changed("AMillionMinusSigns", "50;", std::string(1'000'000, '-') + "50;",
            "<folder>/main.site::parse error"),
    changed("AMillionTerms", "50;", "50" + repeated("+0", 1'000'000) + ";", "opened"),
    script(
        "AMillionOpenBlocks", [] { return repeated("context {", 1'000'000); },
        "Uncaught Exception in Experiment Initialise"),
    changed("AStringOfTenMegabytes", "\"Flume 1\"", '"' + std::string(10'000'000, 'x') + '"',
            "File \"<folder>/main.site\" has a string of 10000000 characters at line 7: at most "
            "1048576 can be read"),
    changed("AnOpenString", "\"Flume 1\"", "\"Flume 1",
            "Uncaught Exception in Experiment Initialise"),
    changed("ANumberOfTenMegabytes", "50;", std::string(10'000'000, '5') + ";",
            "File \"<folder>/main.site\" has a number of 10000000 characters at line 84: at most "
            "1048576 can be read"),
    changed("AHexadecimalNumberOfTenMegabytes", "50;", "0x" + std::string(10'000'000, 'f') + ";",
            "File \"<folder>/main.site\" has a number of 10000002 characters at line 84: at most "
            "1048576 can be read"),
    script(
        "ANameOfTenMegabytes", [] { return std::string(10'000'000, 'x'); },
        "File \"<folder>/main.site\" has a name of 10000000 characters at line 1: at most 1048576 "
        "can be read"),
    changed("ABaseRateOf1e308", "50;", "1e308;", "opened"),
    changed("AnExponentBeyondAllNumbers", "50;", "1e999999999;", "opened"),
    changed("ABaseRateOfZero", "50;", "0;", "opened"),
    changed("ANegativeBaseRate", "50;", "-50;", "opened"),
    changed("ABaseRateWithoutAValue", "50;", "$;", "opened"),
    changed("AnInfiniteWidth", "max_y = 0.8;", "max_y = 1e308 * 10;", "opened"),
    changed("AWidthWithoutAValue", "max_y = 0.8;", "max_y = $;", "opened"),
    changed("ATankOfAllLengths", "18.5 + 6.5;", "1e308;",
            "Section[2]::depth profile does not get beyond x = 25.5"),
    changed("ABottomInStepsOf1e300OfAMetre", "delta_x = 0.25;", "delta_x = 1e-300;",
            "Section[2]::depth profile does not get beyond x = 18.5"),
    changed("ABottomInStepsOfAMicrometre", "delta_x = 0.25;", "delta_x = 1e-6;",
            "Section[2]::depth profile does not come to an end, stopped at x = 19.5"),
    // Formulas have no exponents.
    changed("ADepthOf1e308", "\"0.7\";", "\"1" + std::string(308, '0') + ".0\";", "opened"),
    changed("ADepthThatIsNoNumber", "\"0.7\";", "\"sqrt(0-1)\";", "opened"),
    changed("ADepthFormulaOfAMillionBrackets", "\"0.7\";",
            '"' + std::string(1'000'000, '(') + "\";",
            "<folder>/main.site::Error while parsing expression ::" + std::string(1'000'000, '(')),
    changed("APaddleAt1e308", "y = 0.4;", "y = 1e308;", "opened"),
    changed("APaddleWidthOfZero", "paddle_width = 0.8;", "paddle_width = 0;", "opened"),
};

INSTANTIATE_TEST_SUITE_P(SiteScript, HazardTest, testing::ValuesIn(rows), row_name);

}  // namespace
}  // namespace Testing
