#include "base/unit_table.h"

#include "base/units.h"

namespace Base {

// Some factors have only a few figures, and the gallons and pints are ten times too large. Both
// stay as they are: stored site data and the results of hosts rely on them.
// clang-format off
constinit const std::array<UnitRow, 90> unit_table{{
    {"Error",       Category::error,         0, 1.0},
    {"",            Category::unit,          1, 1.0},
    {"thou",        Category::length,        1, 2.54e-05},
    {"in",          Category::length,        1, 0.0254},
    {"ft",          Category::length,        1, 0.3048},
    {"yd",          Category::length,        1, 0.9144},
    {"mi",          Category::length,        1, 1609.34},
    {"nm",          Category::length,        1, 1852.0},
    {"m",           Category::length,        1, 1.0},
    {"in/s",        Category::velocity,      1, 0.0254},
    {"ft/s",        Category::velocity,      1, 0.3048},
    {"ft/min",      Category::velocity,      1, 0.00508},
    {"mi/h",        Category::velocity,      1, 0.44704},
    {"kn",          Category::velocity,      1, 0.514444},
    {"m/h",         Category::velocity,      1, 0.000277778},
    {"m/s",         Category::velocity,      1, 1.0},
    {"ft/s2",       Category::acceleration,  1, 0.3048},
    {"m/s2",        Category::acceleration,  1, 1.0},
    {"in2",         Category::area,          2, 0.00064516},
    {"ft2",         Category::area,          2, 0.092903},
    {"yd2",         Category::area,          2, 0.836127},
    {"m2",          Category::area,          2, 1.0},
    {"impgal",      Category::volume,        1, 0.0454608},
    {"imppt",       Category::volume,        1, 0.0056826},
    {"usgal",       Category::volume,        1, 0.0378544},
    {"uspt",        Category::volume,        1, 0.0047318},
    {"in3",         Category::volume,        3, 1.63871e-05},
    {"ft3",         Category::volume,        3, 0.0283168},
    {"yd3",         Category::volume,        3, 0.764555},
    {"L",           Category::volume,        1, 0.001},
    {"m3",          Category::volume,        3, 1.0},
    {"lbf",         Category::force,         1, 4.448},
    {"pdl",         Category::force,         1, 0.138255},
    {"N",           Category::force,         1, 1.0},
    {"lbf/in2",     Category::pressure,      1, 6894.41},
    {"bar",         Category::pressure,      1, 100000.0},
    {"Pa",          Category::pressure,      1, 1.0},
    {"imppt/hr",    Category::flow,          1, 1.5785e-06},
    {"impgal/min",  Category::flow,          1, 0.00075768},
    {"imppt/min",   Category::flow,          1, 9.471e-05},
    {"impgal/s",    Category::flow,          1, 0.0454608},
    {"imppt/s",     Category::flow,          1, 0.0056826},
    {"usgal/min",   Category::flow,          1, 0.000630907},
    {"uspt/min",    Category::flow,          1, 7.88633e-05},
    {"usgal/s",     Category::flow,          1, 0.0378544},
    {"uspt/s",      Category::flow,          1, 0.0047318},
    {"ft3/s",       Category::flow,          3, 0.0283168},
    {"L/s",         Category::flow,          1, 0.001},
    {"m3/s",        Category::flow,          3, 1.0},
    {"h",           Category::time,          1, 3600.0},
    {"min",         Category::time,          1, 60.0},
    {"s",           Category::time,          1, 1.0},
    {"Hz",          Category::frequency,     1, 1.0},
    {"ins/rad",     Category::length_time,   1, 0.159593},
    {"fts/rad",     Category::length_time,   1, 1.91511},
    {"yds/rad",     Category::length_time,   1, 5.74534},
    {"ms/rad",      Category::length_time,   1, 6.28319},
    {"ins",         Category::length_time,   1, 0.0254},
    {"fts",         Category::length_time,   1, 0.3048},
    {"yds",         Category::length_time,   1, 0.9144},
    {"ms",          Category::length_time,   1, 1.0},
    {"in2s/rad",    Category::variance,      2, 0.00405366},
    {"ft2s/rad",    Category::variance,      2, 0.583727},
    {"yd2s/rad",    Category::variance,      2, 5.25354},
    {"m2s/rad",     Category::variance,      2, 6.28319},
    {"in2s",        Category::variance,      2, 0.00064516},
    {"ft2s",        Category::variance,      2, 0.092903},
    {"yd2s",        Category::variance,      2, 0.836127},
    {"m2s",         Category::variance,      2, 1.0},
    {"ton",         Category::mass,          1, 1016.05},
    {"lb",          Category::mass,          1, 0.453592},
    {"oz",          Category::mass,          1, 0.0283495},
    {"g",           Category::mass,          1, 0.001},
    {"Wh",          Category::energy,        1, 3600.0},
    {"J",           Category::energy,        1, 1.0},
    {"hp",          Category::power,         1, 745.7},
    {"W",           Category::power,         1, 1.0},
    {"deg",         Category::angle,         1, 0.0174533},
    {"rad",         Category::angle,         1, 1.0},
    {"r/min",       Category::angrate,       1, 0.10472},
    {"r/s",         Category::angrate,       1, 6.28319},
    {"rad/s",       Category::angrate,       1, 1.0},
    {"inlb",        Category::torque,        1, 0.112979},
    {"ftlb",        Category::torque,        1, 1.35575},
    {"Nm",          Category::torque,        1, 1.0},
    {"lb/ft3",      Category::density,       1, 16.0185},
    {"g/m3",        Category::density,       1, 0.001},
    {"rad/m",       Category::wavenum,       1, 1.0},
    {"V",           Category::volts,         1, 1.0},
    {"A",           Category::amps,          1, 1.0},
}};

constinit const std::array<UnitAlias, 8> unit_aliases{{
    {"unit",  1},
    {"psi",   34},
    {"N/m2",  36},
    {"hr",    49},
    {"sec",   51},
    {"m/Hz",  60},
    {"m2/Hz", 68},
    {"rpm",   79},
}};

constinit const std::array<PrefixRow, 10> prefix_table{{
    {'\0', 1.0},
    {'G', 1000000000.0},
    {'M', 1000000.0},
    {'k', 1000.0},
    {'h', 100.0},
    {'d', 0.1},
    {'c', 0.01},
    {'m', 0.001},
    {'u', 1e-06},
    {'p', 1e-09},  // hosts use p for nano
}};

constinit const std::array<Units, 24> default_units_table{{
    {0, 0},   // error
    {1, 0},   // unit
    {8, 0},   // length
    {15, 0},  // velocity
    {17, 0},  // acceleration
    {21, 0},  // area
    {30, 0},  // volume
    {33, 0},  // force
    {36, 0},  // pressure
    {48, 0},  // flow
    {51, 0},  // time
    {52, 0},  // frequency
    {60, 0},  // length_time
    {68, 0},  // variance
    {72, 2},  // mass, in Mg
    {74, 0},  // energy
    {76, 0},  // power
    {78, 0},  // angle
    {81, 0},  // angrate
    {84, 0},  // torque
    {86, 2},  // density, in Mg/m3
    {87, 0},  // wavenum
    {88, 0},  // volts
    {89, 0},  // amps
}};
// clang-format on

}  // namespace Base
