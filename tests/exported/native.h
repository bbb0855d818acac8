// The exported functions as a host declares them: each `long` a handle or an unsigned number, each
// object a handle and a proxy.
#ifndef KELPBOX_TESTS_EXPORTED_NATIVE_H_
#define KELPBOX_TESTS_EXPORTED_NATIVE_H_

#include <jni.h>

// The host's object behind a handle. The library does not look at it.
inline constexpr jobject proxy = nullptr;

#define NATIVE(name) Java_tidelab_KelpboxNativeLibrary_KelpboxNativeLibraryJNI_##name
#define DECLARE(type, name, ...) \
  extern "C" type NATIVE(name)(JNIEnv*, jclass __VA_OPT__(, ) __VA_ARGS__)

// What all vector families have.
#define DECLARE_FAMILY(family)                                                 \
  DECLARE(jlong, new_1Kelpbox_1StdVector##family##_1_1SWIG_10);                \
  DECLARE(jlong, new_1Kelpbox_1StdVector##family##_1_1SWIG_11, jlong);         \
  DECLARE(void, delete_1Kelpbox_1StdVector##family, jlong);                    \
  DECLARE(jlong, Kelpbox_1StdVector##family##_1size, jlong, jobject);          \
  DECLARE(jlong, Kelpbox_1StdVector##family##_1capacity, jlong, jobject);      \
  DECLARE(void, Kelpbox_1StdVector##family##_1reserve, jlong, jobject, jlong); \
  DECLARE(jboolean, Kelpbox_1StdVector##family##_1isEmpty, jlong, jobject);    \
  DECLARE(void, Kelpbox_1StdVector##family##_1clear, jlong, jobject)

#define DECLARE_VALUES(family, type)                                      \
  DECLARE_FAMILY(family);                                                 \
  DECLARE(void, Kelpbox_1StdVector##family##_1add, jlong, jobject, type); \
  DECLARE(type, Kelpbox_1StdVector##family##_1get, jlong, jobject, jint); \
  DECLARE(void, Kelpbox_1StdVector##family##_1set, jlong, jobject, jint, type)

#define DECLARE_RECORDS(family)                                                     \
  DECLARE_FAMILY(family);                                                           \
  DECLARE(void, Kelpbox_1StdVector##family##_1add, jlong, jobject, jlong, jobject); \
  DECLARE(jlong, Kelpbox_1StdVector##family##_1get, jlong, jobject, jint);          \
  DECLARE(void, Kelpbox_1StdVector##family##_1set, jlong, jobject, jint, jlong, jobject)

DECLARE_VALUES(Double, jdouble);
DECLARE_VALUES(Float, jfloat);
DECLARE_VALUES(Short, jshort);
DECLARE_VALUES(UInt, jlong);
DECLARE_VALUES(String, jstring);
DECLARE_RECORDS(Param);
DECLARE_RECORDS(Front);
DECLARE_RECORDS(DisplayFront);
DECLARE_RECORDS(TransferFront);
DECLARE(jlong, new_1Kelpbox_1Param);
DECLARE(void, delete_1Kelpbox_1Param, jlong);
DECLARE(jstring, Kelpbox_1Param_1name, jlong, jobject);
DECLARE(jdouble, Kelpbox_1Param_1value, jlong, jobject);
DECLARE(jstring, Kelpbox_1Param_1units, jlong, jobject);
DECLARE(jboolean, Kelpbox_1Param_1is_1enum, jlong, jobject);
DECLARE(jstring, Kelpbox_1Param_1enum_1type, jlong, jobject);
DECLARE(jstring, Kelpbox_1Param_1enum_1value, jlong, jobject);
DECLARE(jdouble, Kelpbox_1Param_1convert, jstring, jstring);
DECLARE(jlong, Kelpbox_1Param_1alternate, jstring);
DECLARE(jlong, new_1Kelpbox_1Params);
DECLARE(void, delete_1Kelpbox_1Params, jlong);
DECLARE(void, Kelpbox_1Params_1clear, jlong, jobject);
DECLARE(jdouble, Kelpbox_1Params_1get, jlong, jobject, jstring, jstring);
DECLARE(jlong, Kelpbox_1Params_1get_1enum, jlong, jobject, jstring, jstring);
DECLARE(void, Kelpbox_1Params_1insert_1_1SWIG_10, jlong, jobject, jstring, jdouble, jstring);
DECLARE(void, Kelpbox_1Params_1insert_1_1SWIG_11, jlong, jobject, jstring, jstring, jstring);
DECLARE(jlong, Kelpbox_1Params_1param_1list, jlong, jobject);
DECLARE(jlong, Kelpbox_1Params_1comment_1size, jlong, jobject);
DECLARE(jstring, Kelpbox_1Params_1comment, jlong, jobject, jlong);
DECLARE(void, Kelpbox_1Params_1print, jlong, jobject);
DECLARE(jlong, new_1Kelpbox_1Vector, jstring, jstring, jlong, jobject);
DECLARE(void, delete_1Kelpbox_1Vector, jlong);
DECLARE(jlong, Kelpbox_1Vector_1size, jlong, jobject);
DECLARE(jdouble, Kelpbox_1Vector_1getValue, jlong, jobject, jint);
DECLARE(jlong, new_1Kelpbox_1Front_1_1SWIG_10);
DECLARE(jlong, new_1Kelpbox_1Front_1_1SWIG_11, jdouble, jdouble, jdouble, jdouble);
DECLARE(void, delete_1Kelpbox_1Front, jlong);
DECLARE(jdouble, Kelpbox_1Front_1get_1amp, jlong, jobject);
DECLARE(jdouble, Kelpbox_1Front_1get_1angle, jlong, jobject);
DECLARE(jdouble, Kelpbox_1Front_1get_1phase, jlong, jobject);
DECLARE(jdouble, Kelpbox_1Front_1get_1freq, jlong, jobject);
DECLARE(jlong, new_1Kelpbox_1DisplayFront, jdouble, jdouble, jdouble, jdouble);
DECLARE(void, delete_1Kelpbox_1DisplayFront, jlong);
DECLARE(jdouble, Kelpbox_1DisplayFront_1get_1amp, jlong, jobject);
DECLARE(jdouble, Kelpbox_1DisplayFront_1get_1angle, jlong, jobject);
DECLARE(jdouble, Kelpbox_1DisplayFront_1get_1phase, jlong, jobject);
DECLARE(jdouble, Kelpbox_1DisplayFront_1get_1freq, jlong, jobject);
DECLARE(jlong, new_1Kelpbox_1TransferFront);
DECLARE(void, delete_1Kelpbox_1TransferFront, jlong);
DECLARE(jdouble, Kelpbox_1TransferFront_1get_1amp, jlong, jobject);
DECLARE(jdouble, Kelpbox_1TransferFront_1get_1angle, jlong, jobject);
DECLARE(jdouble, Kelpbox_1TransferFront_1get_1phase, jlong, jobject);
DECLARE(jlong, Kelpbox_1TransferFront_1get_1harmonic, jlong, jobject);
DECLARE(jlong, new_1Kelpbox_1Position);
DECLARE(void, delete_1Kelpbox_1Position, jlong);
DECLARE(jdouble, Kelpbox_1Position_1get_1x, jlong, jobject);
DECLARE(jdouble, Kelpbox_1Position_1get_1y, jlong, jobject);
DECLARE(jdouble, Kelpbox_1Position_1get_1t, jlong, jobject);
DECLARE(jlong, new_1Kelpbox_1RunData);
DECLARE(void, delete_1Kelpbox_1RunData, jlong);
DECLARE(jdouble, Kelpbox_1RunData_1value, jlong, jobject);
DECLARE(jlong, Kelpbox_1RunData_1size, jlong, jobject);
DECLARE(jdouble, Kelpbox_1RunData_1freq, jlong, jobject, jlong);
DECLARE(jlong, Kelpbox_1RunData_1wave_1num, jlong, jobject, jdouble);
DECLARE(jlong, Kelpbox_1RunData_1harmonic, jlong, jobject, jlong);
DECLARE(jboolean, Kelpbox_1RunData_1is_1inrange, jlong, jobject, jdouble);
DECLARE(jboolean, Kelpbox_1RunData_1dalrymple, jlong, jobject);
DECLARE(jlong, new_1Kelpbox_1Experiment_1_1SWIG_10);
DECLARE(jlong, new_1Kelpbox_1Experiment_1_1SWIG_11, jstring);
DECLARE(void, delete_1Kelpbox_1Experiment, jlong);
DECLARE(void, Kelpbox_1Experiment_1initialise, jlong, jobject, jstring);
DECLARE(jstring, Kelpbox_1Experiment_1context_1name, jlong, jobject);
DECLARE(jstring, Kelpbox_1Experiment_1context_1string, jlong, jobject);
DECLARE(void, Kelpbox_1Experiment_1get_1consts, jlong, jobject, jlong, jobject);
DECLARE(void, Kelpbox_1Experiment_1query, jlong, jobject, jlong, jobject);
DECLARE(void, Kelpbox_1Experiment_1query_1_1SWIG_10, jlong, jobject, jlong, jobject);
DECLARE(void, Kelpbox_1Experiment_1set, jlong, jobject, jlong, jobject);
DECLARE(void, Kelpbox_1Experiment_1set_1_1SWIG_10, jlong, jobject, jlong, jobject);
DECLARE(jlong, Kelpbox_1Experiment_1profile, jlong, jobject, jlong, jobject);
DECLARE(jlong, Kelpbox_1Experiment_1paddle_1banks, jlong, jobject);
DECLARE(jlong, Kelpbox_1Experiment_1paddle_1bank_1size, jlong, jobject, jlong);
DECLARE(jstring, Kelpbox_1Experiment_1paddle_1bank_1info, jlong, jobject, jlong, jlong, jobject);
DECLARE(void, Kelpbox_1Experiment_1paddle_1info, jlong, jobject, jlong, jlong, jlong, jobject);
DECLARE(jlong, Kelpbox_1Experiment_1add_1definition, jlong, jobject, jstring);
DECLARE(jlong, Kelpbox_1Experiment_1add_1specification, jlong, jobject, jlong);
DECLARE(jlong, Kelpbox_1Experiment_1add_1fronts, jlong, jobject, jlong, jlong, jobject);
DECLARE(jlong, Kelpbox_1Experiment_1add_1single, jlong, jobject, jlong);
DECLARE(jlong, Kelpbox_1Experiment_1add_1spectrum, jlong, jobject, jlong, jstring, jstring);
DECLARE(jlong, Kelpbox_1Experiment_1add_1timeexp, jlong, jobject, jlong, jstring, jstring);
DECLARE(jlong, Kelpbox_1Experiment_1add_1timeseries, jlong, jobject, jlong, jlong, jobject);
DECLARE(jlong, Kelpbox_1Experiment_1add_1modifier, jlong, jobject, jlong, jstring, jstring);
DECLARE(void, Kelpbox_1Experiment_1query_1_1SWIG_11, jlong, jobject, jlong, jlong, jobject);
DECLARE(void, Kelpbox_1Experiment_1set_1_1SWIG_11, jlong, jobject, jlong, jlong, jobject);
DECLARE(void, Kelpbox_1Experiment_1remove, jlong, jobject, jlong);
DECLARE(void, Kelpbox_1Experiment_1clear, jlong, jobject);
DECLARE(void, Kelpbox_1Experiment_1get_1params, jstring, jlong, jobject);
DECLARE(void, Kelpbox_1Experiment_1run_1build, jlong, jobject, jlong);
DECLARE(jlong, Kelpbox_1Experiment_1run_1size, jlong, jobject, jlong);
DECLARE(jlong, Kelpbox_1Experiment_1repeat, jlong, jobject, jlong);
DECLARE(jlong, Kelpbox_1Experiment_1position, jlong, jobject, jlong, jlong);
DECLARE(jlong, Kelpbox_1Experiment_1fronts_1_1SWIG_10, jlong, jobject, jlong, jlong);
DECLARE(jlong, Kelpbox_1Experiment_1fronts_1_1SWIG_11, jlong, jobject, jlong, jboolean);
DECLARE(jlong, Kelpbox_1Experiment_1fronts_1_1SWIG_12, jlong, jobject, jlong);
DECLARE(jlong, Kelpbox_1Experiment_1messages, jlong, jobject, jlong);
DECLARE(void, Kelpbox_1Experiment_1paddle_1motion_1build, jlong, jobject, jlong, jlong, jobject);
DECLARE(jlong, Kelpbox_1Experiment_1paddle_1motion_1data, jlong, jobject, jlong, jlong, jlong);
DECLARE(void, Kelpbox_1Experiment_1paddle_1motion_1stats, jlong, jobject, jlong, jlong, jlong,
        jobject);
DECLARE(void, Kelpbox_1Experiment_1animate_1init, jlong, jobject, jlong, jlong, jobject);
DECLARE(void, Kelpbox_1Experiment_1animate_1build, jlong, jobject, jlong, jlong, jobject);
DECLARE(void, Kelpbox_1Experiment_1animate_1build_1slice, jlong, jobject, jlong, jlong, jobject,
        jlong, jlong);
DECLARE(jlong, Kelpbox_1Experiment_1animate_1data, jlong, jobject, jlong, jlong);
DECLARE(jlong, Kelpbox_1Experiment_1animate_1size, jlong, jobject, jlong);
DECLARE(jdouble, Kelpbox_1Experiment_1animate_1progress, jlong, jobject, jlong);
DECLARE(jboolean, Kelpbox_1Experiment_1animate_1ready, jlong, jobject, jlong);
DECLARE(void, Kelpbox_1Experiment_1animate_1stop, jlong, jobject, jlong);
DECLARE(void, Kelpbox_1Experiment_1animate_1free, jlong, jobject, jlong);
DECLARE(void, Kelpbox_1Experiment_1twod_1build, jlong, jobject, jlong, jlong, jobject);
DECLARE(jlong, Kelpbox_1Experiment_1twod_1data, jlong, jobject, jlong, jint);
DECLARE(void, Kelpbox_1Experiment_1twod_1stats, jlong, jobject, jlong, jlong, jobject);
DECLARE(jlong, new_1Kelpbox_1Analysis);
DECLARE(void, delete_1Kelpbox_1Analysis, jlong);
DECLARE(void, Kelpbox_1Analysis_1initialise, jlong, jobject, jstring);
DECLARE(void, Kelpbox_1Analysis_1get_1consts, jlong, jobject, jlong, jobject);
DECLARE(void, Kelpbox_1Analysis_1query, jlong, jobject, jlong, jobject);
DECLARE(void, Kelpbox_1Analysis_1set, jlong, jobject, jlong, jobject);
DECLARE(jlong, Kelpbox_1Analysis_1profile, jlong, jobject, jlong, jobject);
DECLARE(jlong, Kelpbox_1Analysis_1add_1series, jlong, jobject, jlong, jobject, jlong, jobject);
DECLARE(jlong, Kelpbox_1Analysis_1create_1set, jlong, jobject, jlong, jobject, jlong, jobject);
DECLARE(jlong, Kelpbox_1Analysis_1create_1process, jlong, jobject, jlong, jlong);
DECLARE(void, Kelpbox_1Analysis_1get_1results, jlong, jobject, jlong, jlong, jobject, jlong,
        jobject);
DECLARE(jlong, Kelpbox_1Analysis_1get_1data, jlong, jobject, jlong, jlong, jobject);
DECLARE(void, Kelpbox_1Analysis_1clear, jlong, jobject);

#endif  // KELPBOX_TESTS_EXPORTED_NATIVE_H_
