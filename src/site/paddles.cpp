#include "site/paddles.h"

namespace Common {

void PadPos::declare(Script::List& list) {
  list.fixed("x", x);
  list.fixed("y", y);
  list.fixed("angle", angle);
}

// The rule of `machines` admits any number, so that `create` can report a wrong one with the path
// of the bank.
Paddles::Paddles()
    : pad_pos(Script::Rule::at_least(1).from(1)),
      machines(Script::Rule::any()),
      flap(machines, Machine::flap),
      piston(machines, Machine::piston) {}

void Paddles::declare(Script::List& list) {
  list.fixed("name", name);
  list.array("pad_pos", pad_pos);
  list.object("flap", flap);
  list.object("piston", piston);
}

void Paddles::create() {
  if (machines.size() == 1) return;
  throw problem("General")
      .add("There should be one machine exactly but there are ")
      .add(static_cast<unsigned>(machines.size()));
}

}  // namespace Common
