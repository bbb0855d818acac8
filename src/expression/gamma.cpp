#include "expression/gamma.h"

#include <array>
#include <cmath>
#include <limits>

#include "base/compose.h"

namespace Expression {
namespace {

struct Coefficients {
  double p;
  double q;
};

constexpr std::array<Coefficients, 8> rational_coefficients{
    {{-1.716185138865495, -30.840230011973897},
     {24.76565080557592, 315.35062697960416},
     {-379.80425647094563, -1015.1563674902192},
     {629.3311553128184, -3107.771671572311},
     {866.9662027904133, 22538.11842098015},
     {-31451.272968848367, 4755.846277527881},
     {-36144.413418691176, -134659.9598649693},
     {66456.14382024054, -115132.25967555349}}};

constexpr std::array<double, 8> stirling{
    -0.029550653594771242,  0.00641025641025641,   -0.0019175269175269176, 0.0008417508417508417,
    -0.0005952380952380953, 0.0007936507936507937, -0.002777777777777778,  0.08333333333333333};

constexpr double euler_gamma = 0.5772156649015329;
constexpr double series_below = 0.001;
constexpr double half_log_two_pi = 0.9189385332046728;
constexpr double stirling_from = 12.0;
constexpr double largest_argument = 171.624;

// Written as a negation to refuse a NaN too.
void require_positive(const char* function, double x) {
  if (!(x > 0.0)) {
    throw Base::compose(function, ": Invalid input argument ", x, ". Argument must be positive.");
  }
}

// The gamma function of z + 1, for z from 0 to 1.
double rational(double z) {
  double num = 0.0;
  double den = 1.0;
  for (const Coefficients& c : rational_coefficients) {
    num = (num + c.p) * z;
    den = den * z + c.q;
  }
  return num / den + 1.0;
}

}  // namespace

double tgamma(double x) {
  require_positive("tgamma", x);
  if (x < series_below) return 1.0 / (x * (1.0 + euler_gamma * x));
  if (x < 1.0) {
    const double y = x + 1.0;
    return rational(y - 1.0) / (y - 1.0);
  }
  if (x < stirling_from) {
    const int n = static_cast<int>(x) - 1;
    double y = x - n;
    double result = rational(y - 1.0);
    for (int i = 0; i < n; ++i) {
      result *= y;
      y += 1.0;
    }
    return result;
  }
  if (x > largest_argument) return std::numeric_limits<double>::infinity();
  return std::exp(lgamma(x));
}

double lgamma(double x) {
  require_positive("lgamma", x);
  if (x < stirling_from) return std::log(std::fabs(tgamma(x)));
  const double z = 1.0 / (x * x);
  double sum = stirling[0];
  for (std::size_t i = 1; i < stirling.size(); ++i) sum = sum * z + stirling[i];
  return sum / x + ((x - 0.5) * std::log(x) - x + half_log_two_pi);
}

}  // namespace Expression
