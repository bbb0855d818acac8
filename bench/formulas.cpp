// Values of formulas, as a spectrum, a change of direction, a time signal and a bottom read them:
// by the curve that a run uses, by the tree that the curve must agree with, and by muParser where
// it is installed. muParser gets the parameters as constants, which is its fastest form.
#include <benchmark/benchmark.h>

#ifdef KELPBOX_MUPARSER
#include <muParser.h>
#endif

#include <array>
#include <cstddef>
#include <string>

#include "base/params.h"
#include "expression/curve.h"
#include "expression/function.h"

namespace {

namespace Category = Base::Category;

struct Formula {
  const char* name;
  const char* text;      // for the library
  const char* muparser;  // the same with f as the variable
  Base::UnitCategory input;
  Base::UnitCategory output;
  double first;  // the values of the variable
  double step;
};

const std::array<Formula, 5> formulas{{
    {"jonswap",
     "alpha*9.81^2*(2*pi)^-4*$[Hz]^-5*exp(-1.25*(fp[Hz]/$[Hz])^4)"
     "*gamma^exp(-square(($[Hz]-fp[Hz])/(0.07*fp[Hz]))/2)@m2s",
     "alpha*9.81^2*(2*_pi)^-4*f^-5*exp(-1.25*(fp/f)^4)*gamma^exp(-((f-fp)/(0.07*fp))^2/2)",
     Category::frequency, Category::variance, 0.35, 0.001},
    {"bretschneider", "5/16*hs[m]^2/tp[s]^4/$[Hz]^5*exp(-1.25/(tp[s]*$[Hz])^4)@m2s",
     "5/16*hs^2/tp^4/f^5*exp(-1.25/(tp*f)^4)", Category::frequency, Category::variance, 0.35,
     0.001},
    {"directions", "cos($[rad])^2", "cos(f)^2", Category::angle, Category::unit, -1.5, 0.003},
    {"time_signal", "0.02*sin(2*pi*fp[Hz]*$[s])*exp(-square(($[s]-tp[s])/4))@m",
     "0.02*sin(2*_pi*fp*f)*exp(-((f-tp)/4)^2)", Category::time, Category::length, 0.0, 0.01},
    {"slope", "hs[m]-0.05*($[m]-tp[s])@m", "hs-0.05*(f-tp)", Category::length, Category::length,
     0.0, 0.03},
}};

constexpr std::size_t count = 1024;

Base::Params parameters() {
  Base::Params params;
  params.insert("alpha", 0.0081, "");
  params.insert("gamma", 3.3, "");
  params.insert("fp", 0.7, "Hz");
  params.insert("hs", 0.08, "m");
  params.insert("tp", 1.6, "s");
  return params;
}

Expression::Function bound(const Formula& formula) {
  Expression::Function function(formula.text);
  Base::Params used;
  function.bind(parameters(), used);
  return function;
}

// One value in each turn, so that the time is that of one value.
template <typename ValueAt>
void read_values(benchmark::State& state, const Formula& formula, ValueAt value_at) {
  std::size_t i = 0;
  for (auto _ : state) {
    benchmark::DoNotOptimize(value_at(formula.first + static_cast<double>(i) * formula.step));
    i = (i + 1) % count;
  }
}

void by_curve(benchmark::State& state, const Formula& formula) {
  const Expression::Function function = bound(formula);
  const Expression::Curve curve(function, formula.input, formula.output);
  read_values(state, formula, [&](double x) { return curve(x); });
}

void by_tree(benchmark::State& state, const Formula& formula) {
  const Expression::Function function = bound(formula);
  read_values(state, formula, [&](double x) {
    return function.evaluate(Base::Quantity(x, formula.input)).get(formula.output);
  });
}

#ifdef KELPBOX_MUPARSER
void by_muparser(benchmark::State& state, const Formula& formula) {
  double variable = 0.0;
  mu::Parser parser;
  parser.DefineVar("f", &variable);
  const Base::Params params = parameters();
  for (const auto& [name, quantity] : params.entries()) parser.DefineConst(name, quantity.value);
  parser.SetExpr(formula.muparser);
  read_values(state, formula, [&](double x) {
    variable = x;
    return parser.Eval();
  });
}
#endif

}  // namespace

int main(int argc, char** argv) {
  for (const Formula& formula : formulas) {
    const std::string name = formula.name;
    const auto add = [&](const char* way, auto* run) {
      benchmark::RegisterBenchmark(
          (name + way).c_str(), [run, &formula](benchmark::State& state) { run(state, formula); });
    };
#ifdef KELPBOX_MUPARSER
    add("/muparser", by_muparser);
#endif
    add("/tree", by_tree);
    add("/curve", by_curve);
  }
  benchmark::Initialize(&argc, argv);
  benchmark::RunSpecifiedBenchmarks();
  return 0;
}
