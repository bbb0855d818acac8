#include "jobs/nearest.h"

#include <algorithm>
#include <cctype>
#include <cstddef>

namespace Jobs {
namespace {

std::string lower(std::string_view text) {
  std::string result(text);
  for (char& c : result) {
    c = static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
  }
  return result;
}

// Optimal string alignment: each stretch is edited at most once.
std::size_t distance(const std::string& a, const std::string& b) {
  std::vector<std::size_t> before_last(b.size() + 1);
  std::vector<std::size_t> last(b.size() + 1);
  std::vector<std::size_t> row(b.size() + 1);
  for (std::size_t j = 0; j <= b.size(); ++j) {
    last[j] = j;
  }
  for (std::size_t i = 1; i <= a.size(); ++i) {
    row[0] = i;
    for (std::size_t j = 1; j <= b.size(); ++j) {
      const std::size_t substituted = last[j - 1] + (a[i - 1] == b[j - 1] ? 0 : 1);
      row[j] = std::min({substituted, last[j] + 1, row[j - 1] + 1});
      if (i > 1 && j > 1 && a[i - 1] == b[j - 2] && a[i - 2] == b[j - 1]) {
        row[j] = std::min(row[j], before_last[j - 2] + 1);
      }
    }
    before_last.swap(last);
    last.swap(row);
  }
  return last[b.size()];
}

std::vector<std::string> sorted_words(const std::string& name) {
  std::vector<std::string> words(1);
  for (const char c : name) {
    if (c == '_' || c == '-' || c == ' ') {
      words.emplace_back();
    } else {
      words.back() += c;
    }
  }
  std::sort(words.begin(), words.end());
  return words;
}

}  // namespace

std::optional<std::string> nearest(std::string_view name, const std::vector<std::string>& known) {
  const std::string wanted = lower(name);
  for (const std::string& candidate : known) {
    if (lower(candidate) == wanted) {
      return candidate;
    }
  }
  const std::string* best = nullptr;
  std::size_t best_distance = 0;
  for (const std::string& candidate : known) {
    const std::size_t longer = std::max(wanted.size(), candidate.size());
    const std::size_t shorter = std::min(wanted.size(), candidate.size());
    const std::size_t limit = std::max<std::size_t>(longer / 3, 1);
    // The distance is at least the difference of the lengths; very long names cost nothing.
    if (longer - shorter > limit) {
      continue;
    }
    const std::size_t d = distance(wanted, lower(candidate));
    // A distance of the whole length means that nothing is alike, as between "x" and "y".
    if (d <= limit && d < longer && (best == nullptr || d < best_distance)) {
      best = &candidate;
      best_distance = d;
    }
  }
  if (best != nullptr) {
    return *best;
  }
  const std::vector<std::string> words = sorted_words(wanted);
  for (const std::string& candidate : known) {
    if (words.size() > 1 && sorted_words(lower(candidate)) == words) {
      return candidate;
    }
  }
  return std::nullopt;
}

}  // namespace Jobs
