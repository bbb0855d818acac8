// A job as a tree of values that know their places in the text.
#ifndef KELPBOX_JOBS_VALUE_H_
#define KELPBOX_JOBS_VALUE_H_

#include <string>
#include <vector>

#include "jobs/source_text.h"

namespace Jobs {

struct Member;

struct Value {
  enum class Kind { text, number, boolean, array, table, other };

  Kind kind = Kind::table;
  std::string text;             // of a text
  double number = 0.0;          // of a number; may be infinite or NaN
  bool boolean = false;         // of a boolean
  std::vector<Value> items;     // of an array
  std::vector<Member> members;  // of a table, in the order of the text
  Span span;                    // of the value; of a table in brackets, of its head

  // The member of a table, or null.
  const Value* find(const std::string& key) const;
};

struct Member {
  std::string key;
  Span key_span;
  Value value;
};

}  // namespace Jobs

#endif  // KELPBOX_JOBS_VALUE_H_
