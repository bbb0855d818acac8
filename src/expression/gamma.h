// The gamma function of the expression language, for arguments above 0 only.
//
// From 1 to 2 it is a rational approximation (W. J. Cody, "An overview of software development for
// special functions", 1976), up to 12 the recurrence relation, and above that Stirling's series.
// These have 13 to 15 correct digits. Below 0.001 a short series is used, with 6 correct digits.
#ifndef KELPBOX_EXPRESSION_GAMMA_H_
#define KELPBOX_EXPRESSION_GAMMA_H_

namespace Expression {

// Infinity above 171.624. Throws a std::string,
// "tgamma: Invalid input argument <x>. Argument must be positive.", unless x is above 0.
double tgamma(double x);

// The natural logarithm of the gamma function. Throws as tgamma does, as "lgamma: ...".
double lgamma(double x);

}  // namespace Expression

#endif  // KELPBOX_EXPRESSION_GAMMA_H_
