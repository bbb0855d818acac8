// The native objects that a sequence of calls holds, and how long each of them may be used
// (docs/native-ownership.md).
#ifndef KELPBOX_FUZZ_NATIVE_HANDLES_H_
#define KELPBOX_FUZZ_NATIVE_HANDLES_H_

#include <jni.h>

#include <cstddef>
#include <cstdint>
#include <map>
#include <optional>
#include <vector>

namespace Fuzz {

// The class of a native object. One class serves experiments and analyses.
enum class Type {
  experiment,
  params,
  param,
  vector,
  front,
  display_front,
  transfer_front,
  position,
  run_data,
  doubles,
  floats,
  uints,
  shorts,
  strings,
  param_list,
  fronts,
  display_fronts,
  transfer_fronts,
};

// Which call ends a handle that the library owns.
enum class Lent {
  no,              // the host owns the object
  element,         // of a vector
  snapshot,        // param_list
  repeat,          // of a definition
  position,        // of a definition
  set_fronts,      // of a definition, by index
  display_fronts,  // of a definition, merged or not
  signal,          // of a definition
  frame,           // of a definition
  point,           // of a definition
  forever,         // the data of a process
};

struct Handle {
  jlong address = 0;
  Type type = Type::params;
  Lent lent = Lent::no;
  jlong owner = 0;         // the address of the object that owns it
  std::uint32_t item = 0;  // the definition of the owner
};

class Handles {
 public:
  // The object of the type that is the `back`th newest, counted round; nothing if there is none.
  // `owned` leaves out those that the library owns.
  std::optional<jlong> pick(Type type, std::size_t back, bool owned) const;
  bool owned(jlong address) const;
  bool alive(jlong address, Type type) const;
  void add(const Handle& handle);
  // Ends the handle and those that the object owns.
  void end(jlong address, Type type);
  // Ends the handles to elements of a vector that changes.
  void end_elements(jlong vector);
  // Ends what a definition has lent. `item` may be none for all definitions.
  void end_lent(jlong experiment, std::optional<std::uint32_t> item, std::optional<Lent> lent);
  // Takes any object of the host's, experiments first: they may read vectors.
  std::optional<Handle> take_owned();

  // Vectors that a component of the experiment reads.
  void pin(jlong vector, jlong experiment) { pins_[vector].push_back(experiment); }
  bool pinned(jlong vector) const { return pins_.count(vector) != 0; }
  void unpin(jlong experiment);

 private:
  void remove(std::size_t index);

  std::vector<Handle> live_;
  std::map<jlong, std::vector<jlong>> pins_;
};

}  // namespace Fuzz

#endif  // KELPBOX_FUZZ_NATIVE_HANDLES_H_
