// The gamma function of the expression language, for arguments above 0 only.
//
// Rational approximation on 1..2 (W. J. Cody, "An overview of software development for special
// functions", 1976) with the recurrence up to 12, Stirling's series from there. 13 to 15 digits,
// but only 6 below 0.001, where a short series serves.
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
