// Refers a front set from the position where it is requested back to the paddle line.
//
// Linear theory of refraction and shoaling over straight, parallel depth contours: Dean and
// Dalrymple (1991), "Water Wave Mechanics for Engineers and Scientists", chapter 4.
#ifndef KELPBOX_MATHS_REFER_TO_PADDLES_H_
#define KELPBOX_MATHS_REFER_TO_PADDLES_H_

#include "maths/front_set.h"
#include "maths/tank_run.h"

namespace Maths {

// All steps, in this order: refer_to_paddles; dalrymple, if the tank has side walls and the run
// asks for it; apply_shoaling. The position of the set becomes (0, 0, 0). `before` is the state in
// which the previous set left `tank`: the first two steps take their wave numbers from it.
void carry_to_paddles(FrontSet& set, const TankRun& before, TankRun& tank);

// Gives each front its angle at the paddle line by Snell's law. Refers its phase from the set's y
// to `y_ref`, and from the set's time to time 0. A front outside the tank's angle limits keeps its
// slot, with amplitude 0.
void refer_to_paddles(FrontSet& set, const TankRun& tank, double y_ref);

// Divides each amplitude by the shoaling factor from the paddle line to the set's position, and
// adds the phase lag between the two.
void apply_shoaling(FrontSet& set, TankRun& tank, double y_ref);

}  // namespace Maths

#endif  // KELPBOX_MATHS_REFER_TO_PADDLES_H_
