#include "cli/formula_parts.h"

namespace Cli {
namespace {

// clang-format off
constexpr FormulaFunction functions[] = {
    {"square", 1, "a times a",                            "square(3)",    "9"},
    {"sqrt",   1, "square root",                          "sqrt(9)",      "3"},
    {"exp",    1, "e to the power a",                     "exp(0)",       "1"},
    {"log",    1, "natural logarithm",                    "log(1)",       "0"},
    {"lg10",   1, "logarithm to base 10",                 "lg10(1000)",   "3"},
    {"sin",    1, "sine of an angle in radians",          "sin(0)",       "0"},
    {"cos",    1, "cosine of an angle in radians",        "cos(0)",       "1"},
    {"tan",    1, "tangent of an angle in radians",       "tan(0)",       "0"},
    {"asin",   1, "angle in radians",                     "asin(1)",      "1.570796327"},
    {"acos",   1, "angle in radians",                     "acos(0)",      "1.570796327"},
    {"atan",   1, "angle in radians",                     "atan(1)",      "0.7853981634"},
    {"sinh",   1, "hyperbolic sine",                      "sinh(0)",      "0"},
    {"cosh",   1, "hyperbolic cosine",                    "cosh(0)",      "1"},
    {"tanh",   1, "hyperbolic tangent",                   "tanh(0)",      "0"},
    {"tgamma", 1, "gamma function, for a above 0",        "tgamma(5)",    "24"},
    {"atan2",  2, "angle of the point (b, a) in radians", "atan2(1,0-1)", "2.35619449"},
    {"pow",    2, "the same as a^b",                      "pow(2,3)",     "8"},
    {"mod",    2, "accepted, but cannot be evaluated",    "",             ""},
};

constexpr FormulaOperator operators[] = {
    {"a^b  a**b", "power, several in a row from the right", "2^3^2",   "512"},
    {"-a",        "negation, after the power",              "-2^2",    "-4"},
    {"a*b  a/b",  "product and quotient, from the left",    "8/4/2",   "1"},
    {"a+b  a-b",  "sum and difference, from the left",      "8-3-2",   "3"},
    {"( )",       "group",                                  "2*(3+4)", "14"},
};

constexpr FormulaConstant constants[] = {
    {"pi", "3.1415926535893237, kept although it differs in the 13th decimal", "3.141592654"},
    {"e",  "2.718281828459045",                                                "2.718281828"},
};

constexpr std::string_view traps[] = {
    "Numbers have no exponent: write 0.001 or 10^-3, not 1e-3.",
    "A point needs a digit after it: 2.0 or 2, not 2.",
    "There is no implied product: 2*x, not 2x.",
    "Stray characters are ignored in silence: 2 & + 3 is 5, and _x is the parameter x.",
    "Units are matched exactly: x@m and $[Hz], without blanks inside.",
    "Time and frequency do not convert into each other; Hz and rad/s do.",
    "1/0 is infinity and sqrt(-1) is NaN, without a message.",
    "ms is the metre-second and yds the yard-second; a millisecond is msec, a yard is yd.",
};
// clang-format on

}  // namespace

std::span<const FormulaFunction> formula_functions() { return functions; }
std::span<const FormulaOperator> formula_operators() { return operators; }
std::span<const FormulaConstant> formula_constants() { return constants; }
std::span<const std::string_view> formula_traps() { return traps; }

}  // namespace Cli
