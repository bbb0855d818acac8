// Sequences of calls of the class tidelab.waves.Native, which promises that every failure is an
// exception in Java. Addresses of objects may be 0.
#include <tidelab_waves_Native.h>

#include "fuzz/native/calls.h"

#define WAVES(name, ...) \
  rows.push_back(make_row(#name, Java_tidelab_waves_Native_##name, __VA_ARGS__))

namespace Fuzz {
namespace {

constexpr Argument facade = object(Type::experiment);
constexpr Argument params = object(Type::params);

void add_site_calls(std::vector<Row>& rows) {
  WAVES(version, {});
  WAVES(captureOutput, {});
  WAVES(takeOutput, {});
  WAVES(newExperiment, made(Type::experiment));
  WAVES(initialise, {}, {facade});
  WAVES(setWorkers, {}, {facade});
  WAVES(siteName, {}, {facade});
  WAVES(siteText, {}, {facade});
  WAVES(constants, {}, {facade, params});
  WAVES(querySite, {}, {facade, params});
  WAVES(setSite, {}, {facade, params});
  WAVES(profile, {}, {facade, params});
  WAVES(banks, {}, {facade});
  WAVES(bank, {}, {facade, number, params});
  WAVES(paddles, {}, {facade, number});
  WAVES(newParams, made(Type::params));
  WAVES(paramTexts, {}, {params});
  WAVES(paramValues, {}, {params});
  WAVES(paramComments, {}, {params});
  WAVES(convert, {});
}

void add_tree_calls(std::vector<Row>& rows) {
  WAVES(addDefinition, {}, {facade});
  WAVES(addSpecification, {}, {facade, number});
  WAVES(addFronts, {}, {facade, number});
  WAVES(addSingle, {}, {facade, number});
  WAVES(addSpectrum, {}, {facade, number});
  WAVES(addTimeExpression, {}, {facade, number});
  WAVES(addTimeSeries, {}, {facade, number, object(Type::vector)});
  WAVES(addModifier, {}, {facade, number});
  WAVES(newVector, made(Type::vector));
  WAVES(queryItem, {}, {facade, number, params});
  WAVES(setItem, {}, {facade, number, params});
  WAVES(remove, {}, {facade, number});
  WAVES(clear, {}, {facade});
  WAVES(formulaParameters, {}, {params});
}

void add_run_calls(std::vector<Row>& rows) {
  WAVES(buildRun, {}, {facade, number});
  WAVES(buildMotion, {}, {facade, number, params});
  WAVES(motionStatistics, {}, {facade, number, number, params});
  WAVES(buildPoint, {}, {facade, number, params});
  WAVES(pointStatistics, {}, {facade, number, params});
  WAVES(layOutFrames, {}, {facade, number, params});
  WAVES(buildColumns, {}, {facade, number, number, number});
  WAVES(repeat, {}, {facade, number});
  WAVES(position, {}, {facade, number, number});
  WAVES(fronts, {}, {facade, number});
  WAVES(transferFronts, {}, {facade, number, number});
  WAVES(messages, {}, {facade, number});
  WAVES(signal, {}, {facade, number, number, number});
  WAVES(signals, {}, {facade, number, number});
  WAVES(twoD, {}, {facade, number});
  WAVES(frame, {}, {facade, number, number});
  WAVES(addSeries, {}, {facade, params});
  WAVES(createSet, {}, {facade, params});
  WAVES(evaluate, {}, {facade, number, params, params});
}

// The package makes and frees some objects with functions of the other class.
void add_other_calls(std::vector<Row>& rows) {
  CALL(delete_1Kelpbox_1Experiment, {}, {deleted(Type::experiment)});
  CALL(new_1Kelpbox_1Params, made(Type::params));
  CALL(delete_1Kelpbox_1Params, {}, {deleted(Type::params)});
  CALL(Kelpbox_1Params_1insert_1_1SWIG_10, {}, {self(Type::params)});
  CALL(Kelpbox_1Params_1insert_1_1SWIG_11, {}, {self(Type::params)});
  CALL(delete_1Kelpbox_1Vector, {}, {deleted(Type::vector)});
  // While it builds, a second thread may watch and stop it.
  CALL(Kelpbox_1Experiment_1animate_1progress, {}, {self(Type::experiment), number});
  CALL(Kelpbox_1Experiment_1animate_1stop, {}, {self(Type::experiment), number});
  CALL(Kelpbox_1Experiment_1animate_1free, {}, {self(Type::experiment), number});
}

}  // namespace

const std::vector<Row>& rows() {
  static const std::vector<Row> table = [] {
    std::vector<Row> all;
    add_site_calls(all);
    add_tree_calls(all);
    add_run_calls(all);
    add_other_calls(all);
    return all;
  }();
  return table;
}

}  // namespace Fuzz
