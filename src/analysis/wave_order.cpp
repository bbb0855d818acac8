#include "analysis/wave_order.h"

#include <algorithm>
#include <array>
#include <bit>
#include <cstddef>
#include <cstdint>
#include <limits>
#include <utility>

namespace Analysis {
namespace {

struct Entry {
  std::uint64_t key;
  std::uint32_t index;
};

// Unsigned integers in the order of total_order.h.
std::uint64_t ordered(double x) {
  constexpr std::uint64_t sign = std::uint64_t{1} << 63;
  const auto bits = std::bit_cast<std::uint64_t>(x);
  return (bits & sign) != 0 ? ~bits : bits | sign;
}

std::vector<Entry> entries_of(const std::vector<Wave>& waves, double (Wave::*key)() const) {
  std::vector<Entry> entries(waves.size());
  for (std::size_t i = 0; i < waves.size(); ++i) {
    entries[i] = {ordered((waves[i].*key)()), static_cast<std::uint32_t>(i)};
  }
  return entries;
}

// Sorts by one group of bits after the other, from the lowest to the highest.
void sort_by_digits(std::vector<Entry>& entries) {
  constexpr unsigned bits = 11;
  constexpr unsigned digits = 6;
  constexpr std::uint64_t values = 1 << bits;
  const auto digit = [](const Entry& entry, unsigned n) {
    return entry.key >> (n * bits) & (values - 1);
  };
  std::vector<std::array<std::uint32_t, values>> counts(digits);
  for (const Entry& entry : entries) {
    for (unsigned n = 0; n < digits; ++n) ++counts[n][digit(entry, n)];
  }
  std::vector<Entry> sorted(entries.size());
  for (unsigned n = 0; n < digits; ++n) {
    std::uint32_t place = 0;
    for (std::uint32_t& count : counts[n]) place += std::exchange(count, place);
    for (const Entry& entry : entries) sorted[counts[n][digit(entry, n)]++] = entry;
    entries.swap(sorted);
  }
}

// To the last bit, so that NaN equals itself.
bool same(const Wave& a, const Wave& b) {
  using Bits = std::array<std::uint64_t, 4>;
  return std::bit_cast<Bits>(a) == std::bit_cast<Bits>(b);
}

// Whether waves with the same key differ, so that their order is a matter of the way of sorting.
bool ambiguous(const std::vector<Entry>& entries, const std::vector<Wave>& waves) {
  return std::ranges::adjacent_find(entries, [&](const Entry& a, const Entry& b) {
           return a.key == b.key && !same(waves[a.index], waves[b.index]);
         }) != entries.end();
}

}  // namespace

void sort_waves(std::vector<Wave>& waves, double (Wave::*key)() const) {
  constexpr std::size_t few = 1000;  // too few for the counts of digits to pay
  constexpr std::size_t most = std::numeric_limits<std::uint32_t>::max();
  const auto by_key = [](const Entry& a, const Entry& b) { return a.key < b.key; };
  const auto by_wave = [&](const Wave& a, const Wave& b) {
    return ordered((a.*key)()) < ordered((b.*key)());
  };
  if (waves.size() < few || waves.size() > most) {
    std::sort(waves.begin(), waves.end(), by_wave);
    return;
  }
  std::vector<Entry> entries = entries_of(waves, key);
  sort_by_digits(entries);
  if (ambiguous(entries, waves)) {
    entries = entries_of(waves, key);
    // The same comparisons as of the waves themselves, so the same order.
    std::sort(entries.begin(), entries.end(), by_key);
  }
  std::vector<Wave> sorted;
  sorted.reserve(waves.size());
  for (const Entry& entry : entries) sorted.push_back(waves[entry.index]);
  waves.swap(sorted);
}

}  // namespace Analysis
