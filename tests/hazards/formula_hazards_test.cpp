// Formulas: of waves, of changes, and their pieces.
#include <cmath>
#include <string>

#include "expression/function.h"
#include "flume_run.h"
#include "hazard.h"

namespace Testing {
namespace {

// A formula without parameters, evaluated at 0.5 Hz.
std::string value_of(const std::string& text) {
  Expression::Function formula;
  formula.parse(text);
  Base::Params none;
  Base::Params used;
  formula.bind(none, used);
  const Base::Quantity at(0.5, Base::default_units(Base::Category::frequency));
  const double value = formula.evaluate(at).value;
  return std::isnan(value) ? "not a number" : std::to_string(value);
}

Hazard formula(const std::string& name, const std::function<std::string()>& text,
               const std::string& expected) {
  return {name, [=] { return value_of(text()); }, expected};
}

// A spectrum that is added, set, and built.
Hazard spectrum(const std::string& name, const std::function<std::string()>& text,
                const std::string& expected) {
  return {name,
          [=] {
            FlumeRun run;
            const std::uint32_t wave = run.add_spectrum(run.sea, "wave", text());
            run.set_item(wave, {});
            run.build();
            return std::to_string(run.fronts(run.definition_id).size()) + " fronts";
          },
          expected};
}

// 10 pieces of 0.1 Hz, and so on.
std::string pieces(int count) {
  std::string text = "0.1@Hz";
  for (int i = 1; i <= count; ++i) {
    text += "#0.001@m2s#" + std::to_string(0.1 + 1.8 * i / count) + "@Hz";
  }
  return text;
}

Hazard units(const std::string& name, const std::string& text, const std::string& expected) {
  return {name, [=] { return std::to_string(Base::Param::convert(text, "m")); }, expected};
}

constexpr std::size_t million = 1'000'000;
const std::string syntax_error = "Error while parsing expression ::";
const std::string unknown_units = "Unknown units - ";

const Rows rows = {
    formula(
        "FourMegabytesOfTerms", [] { return "1" + repeated("+1", 2 * million); }, "2000001.000000"),
    formula(
        "TenMegabytesOfTermsOfTheVariable", [] { return "$[Hz]" + repeated("+$[Hz]", 1'666'666); },
        "833333.500000"),
    formula(
        "TenMegabytesOfBlanks", [] { return "1" + std::string(10 * million, ' ') + "+1"; },
        "2.000000"),
    formula(
        "AMillionBrackets",
        [] { return std::string(million, '(') + "1" + std::string(million, ')'); },
        syntax_error + std::string(million, '(') + "1" + std::string(million, ')')),
    formula(
        "AMillionOpenBrackets", [] { return std::string(million, '('); },
        syntax_error + std::string(million, '(')),
    formula(
        "AMillionMinusSigns", [] { return std::string(million, '-') + "1"; },
        syntax_error + std::string(million, '-') + "1"),
    formula(
        "AMillionPowers", [] { return "1" + repeated("^1", million); },
        syntax_error + "1" + repeated("^1", million)),
    formula(
        "AHundredThousandFunctionsWithinEachOther",
        [] { return repeated("sin(", 100'000) + "1" + std::string(100'000, ')'); },
        syntax_error + repeated("sin(", 100'000) + "1" + std::string(100'000, ')')),
    formula(
        "TenMegabytesOfUnknownCharacters", [] { return std::string(10 * million, '!'); },
        syntax_error + std::string(10 * million, '!')),
    formula(
        "ANameOfTenMegabytes", [] { return std::string(10 * million, 'x'); },
        "Formula \"xxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxx...\" has a name of "
        "10000000 characters: at most 1048576 can be read"),
    formula(
        "ANumberOfTenMegabytes", [] { return std::string(10 * million, '9'); },
        "Formula \"999999999999999999999999999999999999999999999999999999999999...\" has a number "
        "of 10000000 characters: at most 1048576 can be read"),
    formula(
        "ANumberOfAMillionDigits", [] { return std::string(million, '9') + ".5"; }, "inf"),
    formula(
        "AUnitOfTenMegabytes", [] { return "$[" + std::string(10 * million, 'm') + "]"; },
        "Formula \"$[mmmmmmmmmmmmmmmmmmmmmmmmmmmmmmmmmmmmmmmmmmmmmmmmmmmmmmmmmm...\" has a unit of "
        "10000000 characters: at most 1048576 can be read"),
    formula(
        "UnitsOfTenMegabytesAfterTheFormula", [] { return "1@" + std::string(10 * million, 'm'); },
        unknown_units + std::string(10 * million, 'm')),
    formula(
        "AMillionUnitMarks", [] { return "1" + std::string(million, '@'); },
        unknown_units + std::string(million - 1, '@')),
    formula(
        "AnOverflow", [] { return std::string("exp(exp(exp(exp(9))))"); }, "inf"),
    formula(
        "ALogarithmOfANegativeNumber", [] { return std::string("log(0-1)"); }, "not a number"),
    formula(
        "ADivisionByZero", [] { return std::string("0/0"); }, "not a number"),
    formula(
        "AGammaOfZero", [] { return std::string("tgamma(0)"); },
        "tgamma: Invalid input argument 0. Argument must be positive."),
    formula(
        "AGammaOfNoNumber", [] { return std::string("tgamma(sqrt(0-1))"); },
        "tgamma: Invalid input argument -nan. Argument must be positive."),
    formula(
        "AGammaOfAHugeNumber", [] { return "tgamma(" + std::string(308, '9') + ")"; }, "inf"),
    formula(
        "AGammaOfATinyNumber", [] { return "tgamma(0." + std::string(307, '0') + "1)"; },
        "100000000000000001097906362944045541740492309677311846336810682903157585404911491537163328"
        "978494688899061249669721172515611590283743140088328307009198146046031271664502933027185697"
        "489699588559043338384466165001178426897626212945177628091195786707458122783970171784415105"
        "291802893207873272974885715430223118336.000000"),
    formula(
        "AParameterThatIsNotThere", [] { return std::string(100'000, 'x'); },
        std::string(100'000, 'x') + "::Not found"),
    spectrum(
        "AHundredThousandPieces", [] { return pieces(100'000); }, "117 fronts"),
    spectrum(
        "TwoThousandPieces", [] { return pieces(2000); }, "117 fronts"),
    spectrum(
        "AMillionEmptyPieces", [] { return std::string(million, '#'); },
        "Error while parsing expression ::"),
    spectrum(
        "ADensityThatOverflows", [] { return std::string("0.1@Hz#exp(exp(9))@m2s#1@Hz"); },
        "59 fronts"),
    spectrum(
        "ADensityThatIsNoNumber", [] { return std::string("0.1@Hz#0/0@m2s#1@Hz"); }, "59 fronts"),
    spectrum(
        "ANegativeDensity", [] { return std::string("0.1@Hz#0-1@m2s#1@Hz"); }, "59 fronts"),
    spectrum(
        "ALimitThatIsNoNumber", [] { return std::string("0.1@Hz#1@m2s#0/0@Hz"); },
        "Limit values do not increase in size"),
    spectrum(
        "LimitsFarApart", [] { return "0@Hz#0.001@m2s#" + std::string(300, '9') + "@Hz"; },
        "123 fronts"),
    units("AUnitOfAMegabyte", std::string(million, 'm'), unknown_units + std::string(million, 'm')),
    units("AProductOfAMegabyte", repeated("m*", million / 2) + "m",
          unknown_units + repeated("m*", million / 2) + "m"),
    units("AMegabyteOfPrefixes", repeated("k", million) + "m",
          unknown_units + repeated("k", million) + "m"),
    units("AUnitOfZeroBytes", std::string(million, '\0'),
          unknown_units + std::string(million, '\0')),
};

INSTANTIATE_TEST_SUITE_P(Formula, HazardTest, testing::ValuesIn(rows), row_name);

}  // namespace
}  // namespace Testing
