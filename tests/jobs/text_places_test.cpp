#include "jobs/text_places.h"

#include <gtest/gtest.h>

#include <string>

namespace {

using Jobs::SourceText;
using Jobs::Span;
using Jobs::TextPlaces;

TextPlaces places_of(const std::string& text) {
  return TextPlaces(std::make_shared<SourceText>(SourceText{"job.toml", text}));
}

void expect_span(const Span& span, std::uint32_t line, std::uint32_t column, std::uint32_t length) {
  EXPECT_EQ(span.line, line);
  EXPECT_EQ(span.column, column);
  EXPECT_EQ(span.length, length);
}

TEST(TextPlaces, ColumnsAreBytesAndPlacesAreCharacters) {
  const TextPlaces places = places_of("a = \"\xC3\xA9\xC3\xA9\" # b\nc = 1\n");
  expect_span(places.span({1, 5}, {1, 9}), 1, 5, 6);
  expect_span(places.span({1, 10}, {1, 13}), 1, 12, 3);
  expect_span(places.span({2, 5}, {2, 6}), 2, 5, 1);
}

TEST(TextPlaces, AByteOrderMarkHasNoCharacterOfItsOwn) {
  const TextPlaces places = places_of(
      "\xEF\xBB\xBF"
      "a = 1\n");
  expect_span(places.span({1, 1}, {1, 2}), 1, 4, 1);
  expect_span(places.span_at(0, 3), 1, 1, 3);
}

TEST(TextPlaces, ASpanOfSeveralLinesEndsWithTheFirst) {
  const TextPlaces places = places_of("a = [1,\r\n  2]\n");
  expect_span(places.span({1, 5}, {2, 5}), 1, 5, 3);
}

TEST(TextPlaces, PlacesOutsideTheTextAreAtItsEnd) {
  const TextPlaces places = places_of("a = 1\nb = 2");
  expect_span(places.span({0, 1}, {0, 2}), 2, 6, 0);
  expect_span(places.span({9, 1}, {9, 2}), 2, 6, 0);
  expect_span(places.span({2, 500}, {2, 501}), 2, 6, 0);
  expect_span(places.span({1, 0}, {1, 2}), 1, 1, 1);
}

TEST(TextPlaces, ALineIsReadWithoutItsEnd) {
  const TextPlaces places = places_of("a = 1\r\n\nb = 2");
  EXPECT_EQ(places.line(1), "a = 1");
  EXPECT_EQ(places.line(2), "");
  EXPECT_EQ(places.line(3), "b = 2");
  EXPECT_EQ(places.line(0), "");
  EXPECT_EQ(places.line(4), "");
}

}  // namespace
