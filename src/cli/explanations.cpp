#include "cli/explanations.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <map>
#include <optional>

#include "cli/page_messages.h"

namespace Cli {
namespace {

constexpr std::size_t most_shown = 3;
constexpr std::size_t least_beginning = 12;  // characters; shorter ones fit by chance

// The message, and what remains of it without what others have put before it.
std::vector<std::string> without_prefixes(std::string_view message) {
  std::vector<std::string> variants{std::string(message)};
  const auto add_after = [&](std::size_t at) {
    while (at < message.size() && message[at] == ' ') ++at;
    if (at < message.size()) variants.emplace_back(message.substr(at));
  };
  for (const std::string_view mark :
       {"Exception: ", "Error::", "Warning::", "Detail::", "error: ", "note: "}) {
    const std::size_t at = message.rfind(mark);
    if (at != message.npos) add_after(at + mark.size());
  }
  for (std::size_t i = 0; i < variants.size(); ++i) {
    if (!variants[i].starts_with("Uncaught Exception in ")) continue;
    const std::size_t colon = variants[i].find(": ");
    if (colon != std::string::npos) variants.push_back(variants[i].substr(colon + 2));
  }
  return variants;
}

bool same_place(const Explanation& a, const Explanation& b) {
  return a.page == b.page && a.section == b.section && a.lines == b.lines;
}

void add_once(std::vector<Explanation>& list, const Explanation& explanation) {
  const bool known = std::any_of(list.begin(), list.end(), [&](const Explanation& other) {
    return same_place(other, explanation);
  });
  if (!known && list.size() < most_shown) list.push_back(explanation);
}

struct Ranked {
  const PageMessage* message;
  double rank;
};

void sort(std::vector<Ranked>& ranked) {
  std::stable_sort(ranked.begin(), ranked.end(),
                   [](const Ranked& a, const Ranked& b) { return a.rank > b.rank; });
}

enum class Fit { whole, beginning, part };

// Messages that fit as a whole, that the given one begins with, or that hold the given part. Those
// that tables list come before others.
std::vector<Explanation> fitting(const std::string& message, Fit fit) {
  const bool parts = fit == Fit::part;
  const std::string wanted = normal_form(message);
  std::vector<Ranked> ranked;
  for (const PageMessage& known : page_messages()) {
    constexpr double before_all_others = 1e6;
    const double first = known.listed ? before_all_others : 0.0;
    const bool begins = fit == Fit::beginning && known.pattern.literal() >= least_beginning;
    if (const auto literal = (begins ? known.beginning : known.pattern).fit(message)) {
      ranked.push_back({&known, first + static_cast<double>(*literal)});
    } else if (parts && normal_form(known.explanation.message).find(wanted) != wanted.npos) {
      // The shortest message that holds the part is the likeliest.
      ranked.push_back({&known, first + 1.0 / static_cast<double>(known.pattern.literal())});
    }
  }
  sort(ranked);
  std::vector<Explanation> found;
  for (const Ranked& entry : ranked) {
    const PageMessage& best = *ranked[0].message;
    // A pattern that is far less exact than the best one only fits by chance.
    if (!parts && entry.message->pattern.literal() * 2 < best.pattern.literal()) continue;
    if (best.listed && !entry.message->listed) break;
    add_once(found, entry.message->explanation);
  }
  return found;
}

// Rare words count more than frequent ones.
std::map<std::string, double> word_weights() {
  std::map<std::string, double> weights;
  const auto& messages = page_messages();
  for (const PageMessage& message : messages) {
    for (const std::string& word : message.words) weights[word] += 1.0;
  }
  for (auto& [word, weight] : weights) {
    weight = std::log(1.0 + static_cast<double>(messages.size()) / weight);
  }
  return weights;
}

std::vector<Ranked> by_common_words(const std::string& message) {
  const std::map<std::string, double> weights = word_weights();
  const double unknown_word = std::log(1.0 + static_cast<double>(page_messages().size()));
  const auto weight_of = [&](const std::string& word) {
    const auto found = weights.find(word);
    return found == weights.end() ? unknown_word : found->second;
  };
  const std::set<std::string> words = words_of(message);
  double asked = 0.0;
  for (const std::string& word : words) asked += weight_of(word);
  std::vector<Ranked> ranked;
  for (const PageMessage& known : page_messages()) {
    double common = 0.0;
    double listed = 0.0;
    for (const std::string& word : known.words) {
      listed += weight_of(word);
      if (words.count(word) != 0) common += weight_of(word);
    }
    if (common > 0.0) ranked.push_back({&known, 2.0 * common / (asked + listed)});
  }
  sort(ranked);
  return ranked;
}

}  // namespace

Answer explain_message(std::string_view message) {
  Answer answer;
  const std::vector<std::string> variants = without_prefixes(message);
  // The message itself may be a prefix that a page explains; what follows the prefix says more.
  for (const Fit fit : {Fit::whole, Fit::beginning}) {
    for (auto variant = variants.rbegin(); variant != variants.rend(); ++variant) {
      answer.fitting = fitting(*variant, fit);
      if (!answer.fitting.empty()) return answer;
    }
  }
  if (normal_form(message).size() >= least_part) {
    answer.fitting = fitting(variants.back(), Fit::part);
  }
  if (!answer.fitting.empty()) return answer;
  constexpr double worth_listing = 0.2;
  constexpr double probably_meant = 0.55;
  const std::vector<Ranked> ranked = by_common_words(variants.back());
  for (const Ranked& entry : ranked) {
    if (entry.rank < worth_listing) break;
    const Explanation& similar = entry.message->explanation;
    const bool shown =
        std::any_of(answer.similar.begin(), answer.similar.end(), [&](const Explanation& other) {
          return normal_form(other.message) == normal_form(similar.message);
        });
    if (!shown) add_once(answer.similar, similar);
  }
  answer.likely = !ranked.empty() && ranked[0].rank >= probably_meant;
  return answer;
}

}  // namespace Cli
