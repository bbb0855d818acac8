// The job of bench/basin.toml by direct calls of the library and nothing else: what a C++ host
// would write. bench/command.py compares the command with it.
#include <cstdio>
#include <iostream>
#include <sstream>
#include <string>

#include "facade/experiment.h"

int main(int, char** arguments) {
  std::ostringstream lines;
  std::streambuf* const screen = std::cout.rdbuf(lines.rdbuf());
  {
    Kelpbox::Experiment tank;
    tank.initialise(arguments[1]);
    const std::uint32_t run = tank.add_definition("basin");
    const std::uint32_t sea = tank.add_specification(run);
    const std::uint32_t wave = tank.add_spectrum(
        sea, "sea", "0.35@Hz#5/16*hs[m]^2/tp[s]^4/$[Hz]^5*exp(-1.25/(tp[s]*$[Hz])^4)@m2s#1.4@Hz");
    const std::uint32_t spread = tank.add_modifier(sea, "AngleSpread", "10");
    const std::uint32_t phases = tank.add_modifier(sea, "PhaseRandom", "");

    Base::Params p;
    p.insert("repeat", 256.0, "s");
    p.insert("dalrymple", "False", "Bool");
    p.insert("wave_merge", "Null", "WaveMerge");
    p.insert("ran_gen", "FullRandom", "RanGen");
    p.insert("seed", 7.0, "");
    p.insert("x", 12.0, "m");
    p.insert("y", 10.0, "m");
    p.insert("t", 0.0, "s");
    p.insert("hs", 80.0, "mm");
    p.insert("tp", 1.6, "s");
    p.insert("function", "Cos2S", "SpreadFunc");
    p.insert("angle", 15.0, "deg");
    p.insert("max_angle", 60.0, "deg");
    p.insert("min_angle", -60.0, "deg");
    p.insert("rate", 64.0, "Hz");
    p.insert("delta_angle", 10.0, "deg");
    for (const std::uint32_t item : {sea, wave, spread, phases, run}) tank.set(item, p);
    tank.run_build(run);
    tank.paddle_motion_build(run, p);
    tank.twod_build(run, p);
  }
  std::cout.rdbuf(screen);
  std::puts("done");
}
