// Walks over the tree of declared fields below a list, in the order of declaration.
#ifndef KELPBOX_SCRIPT_WALKS_H_
#define KELPBOX_SCRIPT_WALKS_H_

#include <ostream>
#include <string>

#include "script/list.h"
#include "script/log.h"
#include "script/master.h"

namespace Script {

// Returns whether every required key is set. Writes a line of ready-to-paste script for each one
// that is missing.
bool verify(const List& list, std::ostream& report, unsigned depth = 0,
            const std::string& prefix = "");

// Stores its owner and its path in each object, such as "context::tank::section[2]".
void set_paths(const List& list, Master& owner, const std::string& path = "");

// The first log that an object supplies, depth first, or null.
Log* find_log(const List& list);

// Calls `create` of each object, children before parents. Throws const char*: "calling create on
// undefined object".
void create(const List& list);

// Copies the fields of `from` and builds what `from` has built. Throws const char*, "Trying to
// clone disimilar lists", "Something very wrong" or "Major muckup", when the lists do not match.
void clone(List& to, const List& from);

}  // namespace Script

#endif  // KELPBOX_SCRIPT_WALKS_H_
