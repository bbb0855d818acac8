// The rows of experiments and analyses.
#include <tidelab_KelpboxNativeLibrary_KelpboxNativeLibraryJNI.h>

#include "fuzz/native/calls.h"

namespace Fuzz {
namespace {

constexpr Argument facade = self(Type::experiment);
constexpr Argument params = object(Type::params);

}  // namespace

void add_experiment_calls(std::vector<Row>& rows) {
  CALL(new_1Kelpbox_1Experiment_1_1SWIG_10, made(Type::experiment));
  CALL(new_1Kelpbox_1Experiment_1_1SWIG_11, made(Type::experiment));
  CALL(delete_1Kelpbox_1Experiment, {}, {deleted(Type::experiment)});
  CALL(Kelpbox_1Experiment_1initialise, {}, {facade});
  CALL(Kelpbox_1Experiment_1context_1name, {}, {facade}, Leaves::site_missing);
  CALL(Kelpbox_1Experiment_1context_1string, {}, {facade}, Leaves::site_missing);
  CALL(Kelpbox_1Experiment_1get_1consts, {}, {facade, params});
  CALL(Kelpbox_1Experiment_1query, {}, {facade, params});
  CALL(Kelpbox_1Experiment_1query_1_1SWIG_10, {}, {facade, params});
  CALL(Kelpbox_1Experiment_1set, {}, {facade, params});
  CALL(Kelpbox_1Experiment_1set_1_1SWIG_10, {}, {facade, params});
  CALL(Kelpbox_1Experiment_1profile, made(Type::doubles), {facade, params});
  CALL(Kelpbox_1Experiment_1paddle_1banks, {}, {facade}, Leaves::site_missing);
  CALL(Kelpbox_1Experiment_1paddle_1bank_1size, {}, {facade, number}, Leaves::site_missing);
  CALL(Kelpbox_1Experiment_1paddle_1bank_1info, {}, {facade, number, params}, Leaves::site_missing);
  CALL(Kelpbox_1Experiment_1paddle_1info, {}, {facade, number, number, params},
       Leaves::site_missing);

  CALL(Kelpbox_1Experiment_1add_1definition, {}, {facade}, Leaves::site_missing);
  CALL(Kelpbox_1Experiment_1add_1specification, {}, {facade, number});
  CALL(Kelpbox_1Experiment_1add_1fronts, {}, {facade, number, object(Type::fronts)});
  CALL(Kelpbox_1Experiment_1add_1single, {}, {facade, number});
  CALL(Kelpbox_1Experiment_1add_1spectrum, {}, {facade, number});
  CALL(Kelpbox_1Experiment_1add_1timeexp, {}, {facade, number});
  CALL(Kelpbox_1Experiment_1add_1timeseries, {}, {facade, number, object(Type::vector)});
  CALL(Kelpbox_1Experiment_1add_1modifier, {}, {facade, number});
  CALL(Kelpbox_1Experiment_1query_1_1SWIG_11, {}, {facade, number, params});
  CALL(Kelpbox_1Experiment_1set_1_1SWIG_11, {}, {facade, number, params});
  CALL(Kelpbox_1Experiment_1remove, {}, {facade, number});
  CALL(Kelpbox_1Experiment_1clear, {}, {facade});
  CALL(Kelpbox_1Experiment_1get_1params, {}, {params});

  CALL(Kelpbox_1Experiment_1run_1build, {}, {facade, number});
  CALL(Kelpbox_1Experiment_1run_1size, {}, {facade, number});
  CALL(Kelpbox_1Experiment_1repeat, lent(Type::run_data, Lent::repeat), {facade, number});
  CALL(Kelpbox_1Experiment_1position, lent(Type::position, Lent::position),
       {facade, number, number});
  CALL(Kelpbox_1Experiment_1fronts_1_1SWIG_10, lent(Type::transfer_fronts, Lent::set_fronts),
       {facade, number, number});
  CALL(Kelpbox_1Experiment_1fronts_1_1SWIG_11, lent(Type::fronts, Lent::display_fronts),
       {facade, number});
  CALL(Kelpbox_1Experiment_1fronts_1_1SWIG_12, lent(Type::fronts, Lent::display_fronts),
       {facade, number});
  CALL(Kelpbox_1Experiment_1messages, made(Type::strings), {facade, number});
  // Without a tank the site's own failure leaves it.
  CALL(Kelpbox_1Experiment_1paddle_1motion_1build, {}, {facade, number, params},
       Leaves::site_missing);
  CALL(Kelpbox_1Experiment_1paddle_1motion_1data, lent(Type::doubles, Lent::signal),
       {facade, number, number, number});
  CALL(Kelpbox_1Experiment_1paddle_1motion_1stats, {}, {facade, number, number, params});

  CALL(Kelpbox_1Experiment_1animate_1init, {}, {facade, number, params});
  CALL(Kelpbox_1Experiment_1animate_1build, {}, {facade, number, params});
  CALL(Kelpbox_1Experiment_1animate_1build_1slice, {}, {facade, number, params, number, number});
  CALL(Kelpbox_1Experiment_1animate_1data, lent(Type::shorts, Lent::frame),
       {facade, number, number});
  CALL(Kelpbox_1Experiment_1animate_1size, {}, {facade, number});
  CALL(Kelpbox_1Experiment_1animate_1progress, {}, {facade, number});
  CALL(Kelpbox_1Experiment_1animate_1ready, {}, {facade, number});
  CALL(Kelpbox_1Experiment_1animate_1stop, {}, {facade, number});
  CALL(Kelpbox_1Experiment_1animate_1free, {}, {facade, number});

  CALL(Kelpbox_1Experiment_1twod_1build, {}, {facade, number, params});
  CALL(Kelpbox_1Experiment_1twod_1data, lent(Type::doubles, Lent::point), {facade, number});
  CALL(Kelpbox_1Experiment_1twod_1stats, {}, {facade, number, params});
}

void add_analysis_calls(std::vector<Row>& rows) {
  CALL(new_1Kelpbox_1Analysis, made(Type::experiment));
  CALL(delete_1Kelpbox_1Analysis, {}, {deleted(Type::experiment)});
  CALL(Kelpbox_1Analysis_1initialise, {}, {facade});
  CALL(Kelpbox_1Analysis_1get_1consts, {}, {facade, params});
  CALL(Kelpbox_1Analysis_1query, {}, {facade, params});
  CALL(Kelpbox_1Analysis_1set, {}, {facade, params});
  CALL(Kelpbox_1Analysis_1profile, made(Type::doubles), {facade, params});
  CALL(Kelpbox_1Analysis_1add_1series, {}, {facade, params, object(Type::doubles)});
  CALL(Kelpbox_1Analysis_1create_1set, {}, {facade, params, object(Type::uints)});
  CALL(Kelpbox_1Analysis_1create_1process, {}, {facade, number, number});
  CALL(Kelpbox_1Analysis_1get_1results, {}, {facade, number, params, params});
  CALL(Kelpbox_1Analysis_1get_1data, lent(Type::doubles, Lent::forever), {facade, number, params});
  CALL(Kelpbox_1Analysis_1clear, {}, {facade});
}

}  // namespace Fuzz
