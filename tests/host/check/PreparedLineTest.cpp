#include "host/check/PreparedLine.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tests/host/check/Findings.h"

namespace quobrak::host {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;
using testing::variablesOf;

constexpr const char* SMILE = "\xF0\x9F\x98\x80";

bool isNumberOfRun(std::string_view name) {
  return name == "iteration";
}

PreparedLine prepared(std::string_view line, const std::vector<std::pair<std::string, std::string>>& variables = {}) {
  return {line, variablesOf(variables), isNumberOfRun};
}

std::vector<std::string> notesInWords(const PreparedLine& line) {
  constexpr const char* KINDS[] = {"missing", "endless", "unreplaced"};
  std::vector<std::string> words;
  for (const ReferenceNote& note : line.notes()) {
    words.push_back(std::string(KINDS[static_cast<std::size_t>(note.kind)]) + " " + note.name + " at " +
                    std::string(line.written().substr(note.written.begin, note.written.end - note.written.begin)) +
                    (note.isOfValue ? " in its value" : ""));
  }
  return words;
}

/// What a part of the prepared text was written as.
std::string_view writtenAs(const PreparedLine& line, std::string_view part) {
  const std::size_t begin = line.text().find(part);
  const Span span = line.writtenSpan({.begin = begin, .end = begin + part.size()});
  return line.written().substr(span.begin, span.end - span.begin);
}

TEST(PreparedLine, HasNoBlanksAtItsEnds) {
  const PreparedLine line = prepared("\t pause,5 \xC2\xA0");
  EXPECT_EQ(line.text(), "pause,5");
  EXPECT_EQ(writtenAs(line, "5"), "5");
  EXPECT_EQ(line.writtenSpan({.begin = 7, .end = 7}).begin, 9U);
}

TEST(PreparedLine, HasValuesInPlaceOfReferences) {
  const PreparedLine line = prepared("  enterText,${A}-${B}-${A},7", {{"A", "Lamp"}, {"B", ""}});
  EXPECT_EQ(line.text(), "enterText,Lamp--Lamp,7");
  EXPECT_EQ(writtenAs(line, "Lamp"), "${A}");
  EXPECT_EQ(writtenAs(line, "amp--L"), "${A}-${B}-${A}");
  EXPECT_EQ(writtenAs(line, "7"), "7");
  EXPECT_THAT(line.notes(), IsEmpty());
}

TEST(PreparedLine, HasValuesOfValues) {
  const PreparedLine line = prepared("x${OUTER}y", {{"OUTER", "[${INNER}]"}, {"INNER", "1"}});
  EXPECT_EQ(line.text(), "x[1]y");
  EXPECT_EQ(writtenAs(line, "1"), "${OUTER}");
}

TEST(PreparedLine, IsAsWrittenInComments) {
  const PreparedLine line = prepared(" # ${A}");
  EXPECT_EQ(line.text(), "# ${A}");
  EXPECT_THAT(line.notes(), IsEmpty());
}

TEST(PreparedLine, NotesVariablesThatAreMissing) {
  const PreparedLine line = prepared("a,${M},${B},${M},${N}", {{"B", "<${O}>"}});
  EXPECT_EQ(line.text(), "a,?,<?>,?,?");
  EXPECT_THAT(notesInWords(line),
              ElementsAre("missing M at ${M}", "missing O at ${B} in its value", "missing N at ${N}"));
  EXPECT_TRUE(line.isUnknown({.begin = 2, .end = 3}));
  EXPECT_FALSE(line.isUnknown({.begin = 0, .end = 2}));
  EXPECT_FALSE(line.isUnknown({.begin = 4, .end = 5}));
}

TEST(PreparedLine, KnowsThatAValueIsNotKnown) {
  const PreparedLine line = prepared("pause,${iteration}0");
  EXPECT_THAT(line.notes(), IsEmpty());
  EXPECT_TRUE(line.isUnknown({.begin = 6, .end = 8}));
  EXPECT_FALSE(prepared("pause,?").isUnknown({.begin = 6, .end = 7}));
}

TEST(PreparedLine, NotesWhatNeverEnds) {
  using Definitions = std::vector<std::pair<std::string, std::string>>;
  const std::vector<Definitions> table{{{"A", "${A}"}},
                                       {{"A", "x${A}"}},
                                       {{"A", "${A}${A}"}},
                                       {{"A", "${B}"}, {"B", "${C}"}, {"C", "${A}"}},
                                       {{"A", std::string(SMILE) + "${A} and more"}}};
  for (const Definitions& definitions : table) {
    const PreparedLine line = prepared("enterText,${A}", definitions);
    ASSERT_EQ(line.notes().size(), 1U) << definitions.front().second;
    EXPECT_EQ(notesInWords(line).front().substr(0, 8), "endless ") << definitions.front().second;
    EXPECT_EQ(line.notes().front().written.begin, 10U);
    EXPECT_TRUE(line.text().starts_with("enterText,")) << line.text();
    EXPECT_TRUE(line.isUnknown({.begin = 10, .end = line.text().size()}));
  }
}

TEST(PreparedLine, TakesNoLongValuesForEndlessOnes) {
  const std::string longest(100'000, 'x');
  const PreparedLine line = prepared("${A}${B}${C}", {{"A", longest}, {"B", longest}, {"C", longest}});
  EXPECT_EQ(line.text().size(), 300'000U);
  EXPECT_THAT(notesInWords(line), ElementsAre());
}

TEST(PreparedLine, NotesEachVariableThatNeverEndsAndGoesOn) {
  const PreparedLine line = prepared("${A},${C},${B}", {{"A", "${A}${A}"}, {"B", "-${B}"}, {"C", "x"}});
  EXPECT_EQ(line.text(), "?,x,?");
  EXPECT_THAT(notesInWords(line), ElementsAre("endless A at ${A}", "endless B at ${B}"));
}

TEST(PreparedLine, EndsWhereTheSearchEndsBeforeTheReference) {
  // Each replacement brings a character of two units, until the reference is out of the search's reach.
  const PreparedLine line = prepared("${A}", {{"A", std::string(SMILE) + "${A}"}});
  EXPECT_EQ(line.text(), std::string(SMILE) + "${A}");
  EXPECT_THAT(notesInWords(line), ElementsAre("unreplaced A at ${A}"));
}

TEST(PreparedLine, NotesReferencesThatAreNotReplaced) {
  const std::string written = "enterText," + std::string(SMILE) + SMILE + "${A}";
  const PreparedLine line = prepared(written, {{"A", "1"}});
  EXPECT_EQ(line.text(), written);
  EXPECT_THAT(notesInWords(line), ElementsAre("unreplaced A at ${A}"));
}

TEST(PreparedLine, MayGrowALot) {
  const std::string large(60'000, 'x');
  const PreparedLine line = prepared("enterText,${A}${B}", {{"A", large}, {"B", large}});
  EXPECT_THAT(line.notes(), IsEmpty());
  EXPECT_EQ(line.text().size(), 120'010U);
}

}  // namespace
}  // namespace quobrak::host
