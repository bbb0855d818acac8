// The rows of the vectors, parameters and records.
#include <tidelab_KelpboxNativeLibrary_KelpboxNativeLibraryJNI.h>

#include "fuzz/native/calls.h"

namespace Fuzz {

void add_vector_calls(std::vector<Row>& rows) {
  // What the nine families have in common. The types of the elements differ.
#define FAMILY(family, type)                                                                \
  CALL(new_1Kelpbox_1StdVector##family##_1_1SWIG_10, made(type));                           \
  CALL(new_1Kelpbox_1StdVector##family##_1_1SWIG_11, made(type), {number}, Leaves::length); \
  CALL(delete_1Kelpbox_1StdVector##family, {}, {deleted(type)});                            \
  CALL(Kelpbox_1StdVector##family##_1size, {}, {self(type)});                               \
  CALL(Kelpbox_1StdVector##family##_1capacity, {}, {self(type)});                           \
  CALL(Kelpbox_1StdVector##family##_1reserve, {}, {self(type), number}, Leaves::length);    \
  CALL(Kelpbox_1StdVector##family##_1isEmpty, {}, {self(type)});                            \
  CALL(Kelpbox_1StdVector##family##_1clear, {}, {self(type)})
#define VALUES(family, type)                                 \
  FAMILY(family, type);                                      \
  CALL(Kelpbox_1StdVector##family##_1add, {}, {self(type)}); \
  CALL(Kelpbox_1StdVector##family##_1get, {}, {self(type)}); \
  CALL(Kelpbox_1StdVector##family##_1set, {}, {self(type)})
#define RECORDS(family, type, record)                                                 \
  FAMILY(family, type);                                                               \
  CALL(Kelpbox_1StdVector##family##_1add, {}, {self(type), object(record)});          \
  CALL(Kelpbox_1StdVector##family##_1get, lent(record, Lent::element), {self(type)}); \
  CALL(Kelpbox_1StdVector##family##_1set, {}, {self(type), object(record)})
  VALUES(Double, Type::doubles);
  VALUES(Float, Type::floats);
  VALUES(UInt, Type::uints);
  VALUES(Short, Type::shorts);
  VALUES(String, Type::strings);
  RECORDS(Param, Type::param_list, Type::param);
  RECORDS(Front, Type::fronts, Type::front);
  RECORDS(DisplayFront, Type::display_fronts, Type::display_front);
  RECORDS(TransferFront, Type::transfer_fronts, Type::transfer_front);
}

void add_param_calls(std::vector<Row>& rows) {
  CALL(new_1Kelpbox_1Param, made(Type::param));
  CALL(delete_1Kelpbox_1Param, {}, {deleted(Type::param)});
  CALL(Kelpbox_1Param_1name, {}, {self(Type::param)});
  CALL(Kelpbox_1Param_1value, {}, {self(Type::param)});
  CALL(Kelpbox_1Param_1units, {}, {self(Type::param)});
  CALL(Kelpbox_1Param_1is_1enum, {}, {self(Type::param)});
  CALL(Kelpbox_1Param_1enum_1type, {}, {self(Type::param)});
  CALL(Kelpbox_1Param_1enum_1value, {}, {self(Type::param)});
  CALL(Kelpbox_1Param_1convert, {});
  CALL(Kelpbox_1Param_1alternate, made(Type::strings));

  CALL(new_1Kelpbox_1Params, made(Type::params));
  CALL(delete_1Kelpbox_1Params, {}, {deleted(Type::params)});
  CALL(Kelpbox_1Params_1clear, {}, {self(Type::params)});
  CALL(Kelpbox_1Params_1get, {}, {self(Type::params)});
  CALL(Kelpbox_1Params_1get_1enum, {}, {self(Type::params)});
  CALL(Kelpbox_1Params_1insert_1_1SWIG_10, {}, {self(Type::params)});
  CALL(Kelpbox_1Params_1insert_1_1SWIG_11, {}, {self(Type::params)});
  CALL(Kelpbox_1Params_1param_1list, lent(Type::param_list, Lent::snapshot), {self(Type::params)});
  CALL(Kelpbox_1Params_1comment_1size, {}, {self(Type::params)});
  CALL(Kelpbox_1Params_1comment, {}, {self(Type::params), number});
  CALL(Kelpbox_1Params_1print, {}, {self(Type::params)});

  CALL(new_1Kelpbox_1Vector, made(Type::vector), {object(Type::doubles)});
  CALL(delete_1Kelpbox_1Vector, {}, {deleted(Type::vector)});
  CALL(Kelpbox_1Vector_1size, {}, {self(Type::vector)});
  CALL(Kelpbox_1Vector_1getValue, {}, {self(Type::vector)});
}

void add_record_calls(std::vector<Row>& rows) {
  CALL(new_1Kelpbox_1Front_1_1SWIG_10, made(Type::front));
  CALL(new_1Kelpbox_1Front_1_1SWIG_11, made(Type::front));
  CALL(delete_1Kelpbox_1Front, {}, {deleted(Type::front)});
  CALL(Kelpbox_1Front_1get_1amp, {}, {self(Type::front)});
  CALL(Kelpbox_1Front_1get_1angle, {}, {self(Type::front)});
  CALL(Kelpbox_1Front_1get_1phase, {}, {self(Type::front)});
  CALL(Kelpbox_1Front_1get_1freq, {}, {self(Type::front)});

  CALL(new_1Kelpbox_1DisplayFront, made(Type::display_front));
  CALL(delete_1Kelpbox_1DisplayFront, {}, {deleted(Type::display_front)});
  CALL(Kelpbox_1DisplayFront_1get_1amp, {}, {self(Type::display_front)});
  CALL(Kelpbox_1DisplayFront_1get_1angle, {}, {self(Type::display_front)});
  CALL(Kelpbox_1DisplayFront_1get_1phase, {}, {self(Type::display_front)});
  CALL(Kelpbox_1DisplayFront_1get_1freq, {}, {self(Type::display_front)});

  CALL(new_1Kelpbox_1TransferFront, made(Type::transfer_front));
  CALL(delete_1Kelpbox_1TransferFront, {}, {deleted(Type::transfer_front)});
  CALL(Kelpbox_1TransferFront_1get_1amp, {}, {self(Type::transfer_front)});
  CALL(Kelpbox_1TransferFront_1get_1angle, {}, {self(Type::transfer_front)});
  CALL(Kelpbox_1TransferFront_1get_1phase, {}, {self(Type::transfer_front)});
  CALL(Kelpbox_1TransferFront_1get_1harmonic, {}, {self(Type::transfer_front)});

  CALL(new_1Kelpbox_1Position, made(Type::position));
  CALL(delete_1Kelpbox_1Position, {}, {deleted(Type::position)});
  CALL(Kelpbox_1Position_1get_1x, {}, {self(Type::position)});
  CALL(Kelpbox_1Position_1get_1y, {}, {self(Type::position)});
  CALL(Kelpbox_1Position_1get_1t, {}, {self(Type::position)});

  CALL(new_1Kelpbox_1RunData, made(Type::run_data));
  CALL(delete_1Kelpbox_1RunData, {}, {deleted(Type::run_data)});
  CALL(Kelpbox_1RunData_1value, {}, {self(Type::run_data)});
  CALL(Kelpbox_1RunData_1size, {}, {self(Type::run_data)});
  CALL(Kelpbox_1RunData_1freq, {}, {self(Type::run_data), number});
  CALL(Kelpbox_1RunData_1wave_1num, {}, {self(Type::run_data)});
  CALL(Kelpbox_1RunData_1harmonic, {}, {self(Type::run_data), number});
  CALL(Kelpbox_1RunData_1is_1inrange, {}, {self(Type::run_data)});
  CALL(Kelpbox_1RunData_1dalrymple, {}, {self(Type::run_data)});
}

}  // namespace Fuzz
