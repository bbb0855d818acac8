#include "jobs/diagnostic.h"

#include <algorithm>
#include <cstddef>
#include <string_view>
#include <tuple>
#include <utility>

#include "jobs/marked_line.h"

namespace Jobs {
namespace {

constexpr std::size_t longest_message = 400;  // characters
std::string clean(std::string_view text) { return clean_text(text, longest_message); }

class Painter {
 public:
  explicit Painter(Colour colour) : on_(colour == Colour::on) {}
  std::string red(const std::string& text) const { return paint("\033[1;31m", text); }
  std::string blue(const std::string& text) const { return paint("\033[1;34m", text); }
  std::string bold(const std::string& text) const { return paint("\033[1m", text); }

 private:
  std::string paint(const char* code, const std::string& text) const {
    return on_ ? code + text + "\033[0m" : text;
  }
  bool on_;
};

}  // namespace

BadJob bad_job(std::string fault, Span span, std::string label) {
  BadJob bad;
  Diagnostic& only = bad.faults.emplace_back();
  only.fault = std::move(fault);
  only.span = std::move(span);
  only.label = std::move(label);
  return bad;
}

void sort_by_place(Diagnostics& faults) {
  // Sources have the order of their first faults.
  std::vector<const SourceText*> sources = {nullptr};
  for (const Diagnostic& fault : faults) {
    if (std::find(sources.begin(), sources.end(), fault.span.source.get()) == sources.end()) {
      sources.push_back(fault.span.source.get());
    }
  }
  const auto place = [&sources](const Diagnostic& fault) {
    const auto source = std::find(sources.begin(), sources.end(), fault.span.source.get());
    return std::make_tuple(source - sources.begin(), fault.span.line, fault.span.column);
  };
  std::stable_sort(
      faults.begin(), faults.end(),
      [&place](const Diagnostic& a, const Diagnostic& b) { return place(a) < place(b); });
}

std::string show(const Diagnostic& fault, Colour colour) {
  const Painter painter(colour);
  const Span& span = fault.span;
  const std::string label = clean(fault.label);
  std::string text = painter.red("error") + painter.bold(": " + clean(fault.fault)) + "\n";
  const bool has_line = span.source != nullptr && span.line > 0;
  const std::string number = has_line ? std::to_string(span.line) : "";
  const std::string margin(std::max<std::size_t>(number.size(), 1), ' ');
  if (span.source != nullptr) {
    text += margin + painter.blue("-->") + " " + clean(span.source->name);
    if (has_line) {
      text += ":" + number + ":" + std::to_string(span.column);
    }
    text += "\n";
  }
  if (has_line) {
    const MarkedLine marked = marked_line(span);
    const std::string bar = painter.blue(margin + " |");
    text += bar + "\n";
    text += painter.blue(number + " |") + (marked.text.empty() ? "" : " ") + marked.text + "\n";
    text += bar + " " + std::string(marked.blanks, ' ');
    text +=
        painter.red(std::string(marked.carets, '^') + (label.empty() ? "" : " " + label)) + "\n";
  } else if (!label.empty()) {
    text += margin + painter.blue(" =") + " " + label + "\n";
  }
  return text;
}

}  // namespace Jobs
