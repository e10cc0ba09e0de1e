#include "host/check/FindingsData.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "platform/foundation/JSON.h"
#include "tests/host/check/Findings.h"

namespace quobrak::host {
namespace {

using ::testing::ElementsAre;

const std::vector<ScriptSource> SCRIPTS{{.name = "a folder/ü.txt", .bytes = "pause,😀x\r\npressHome,1"},
                                        {.name = "/good.txt", .bytes = "pause,1"}};

std::vector<std::string> keysOf(const JSONReader& object) {
  std::vector<std::string> keys;
  for (const auto& [key, value] : object.members()) {
    keys.push_back(key);
  }
  return keys;
}

TEST(FindingsData, AsJSONHaveNumbersAndFindings) {
  EXPECT_EQ(asJSON(check(SCRIPTS, {}), SCRIPTS),
            R"({"errors":1,"findings":[)"
            R"({"column":7,"editorLine":1,"endColumn":9,"file":"a folder\/ü.txt","hint":"","line":1,)"
            R"("message":"The pause duration 😀x should be a positive integer","outcome":"failsScript",)"
            R"("rule":"malformed-argument","severity":"error"},)"
            R"({"column":11,"editorLine":2,"endColumn":12,"file":"a folder\/ü.txt",)"
            R"("hint":"no argument contains a comma","line":3,)"
            R"("message":"pressHome takes no arguments: what follows is ignored","outcome":"goesOn",)"
            R"("rule":"surplus-field","severity":"warning"}],"scripts":2,"warnings":1})");
  EXPECT_EQ(asJSON({}, {}), R"({"errors":0,"findings":[],"scripts":0,"warnings":0})");
}

TEST(FindingsData, AsSARIFHaveWhatTheFormatRequires) {
  const JSONValue log = JSONDecoder::decode(asSARIF(check(SCRIPTS, {}), SCRIPTS));
  const JSONReader reader(log);
  EXPECT_EQ(reader.member("version").text(), "2.1.0");
  EXPECT_EQ(reader.member("$schema").text(),
            "https://docs.oasis-open.org/sarif/sarif/v2.1.0/errata01/os/schemas/sarif-schema-2.1.0.json");
  ASSERT_EQ(reader.member("runs").elements().size(), 1U);
  const JSONReader run = reader.member("runs").elements().front();
  EXPECT_THAT(keysOf(run), ElementsAre("columnKind", "newlineSequences", "results", "tool"));
  EXPECT_EQ(run.member("columnKind").text(), "unicodeCodePoints");
  const std::vector<JSONReader> newlines = run.member("newlineSequences").elements();
  ASSERT_EQ(newlines.size(), 8U);
  EXPECT_EQ(newlines.front().text(), "\r\n");
  EXPECT_EQ(run.member("tool").member("driver").member("name").text(), "quobrak");
}

TEST(FindingsData, AsSARIFHaveAllRulesByTheirIndices) {
  const JSONValue log = JSONDecoder::decode(asSARIF(check(SCRIPTS, {}), SCRIPTS));
  const JSONReader run = JSONReader(log).member("runs").elements().front();
  const std::vector<JSONReader> ruleObjects = run.member("tool").member("driver").member("rules").elements();
  ASSERT_EQ(ruleObjects.size(), rules().size());
  for (std::size_t i = 0; i < ruleObjects.size(); ++i) {
    EXPECT_EQ(ruleObjects[i].member("id").text(), rules()[i].id);
    EXPECT_EQ(ruleObjects[i].member("shortDescription").member("text").text(), rules()[i].summary);
  }
  for (const JSONReader& result : run.member("results").elements()) {
    const auto index = static_cast<std::size_t>(result.member("ruleIndex").integer());
    EXPECT_EQ(result.member("ruleId").text(), ruleObjects.at(index).member("id").text());
  }
}

TEST(FindingsData, AsSARIFHaveTheirPlaces) {
  const JSONValue log = JSONDecoder::decode(asSARIF(check(SCRIPTS, {}), SCRIPTS));
  const std::vector<JSONReader> results =
      JSONReader(log).member("runs").elements().front().member("results").elements();
  ASSERT_EQ(results.size(), 2U);
  EXPECT_EQ(results[0].member("level").text(), "error");
  EXPECT_EQ(results[0].member("message").member("text").text(), "The pause duration 😀x should be a positive integer");
  ASSERT_EQ(results[0].member("locations").elements().size(), 1U);
  const JSONReader place = results[0].member("locations").elements().front().member("physicalLocation");
  EXPECT_EQ(place.member("artifactLocation").member("uri").text(), "a%20folder/%C3%BC.txt");
  const JSONReader region = place.member("region");
  EXPECT_EQ(region.member("startLine").integer(), 1);
  EXPECT_EQ(region.member("startColumn").integer(), 7);
  EXPECT_EQ(region.member("endColumn").integer(), 9);
  EXPECT_EQ(region.member("snippet").member("text").text(), "😀x");
  EXPECT_EQ(results[1]
                .member("locations")
                .elements()
                .front()
                .member("physicalLocation")
                .member("region")
                .member("startLine")
                .integer(),
            2);
  EXPECT_EQ(results[1].member("level").text(), "warning");
  EXPECT_EQ(results[1].member("message").member("text").text(),
            "pressHome takes no arguments: what follows is ignored (no argument contains a comma)");
}

TEST(FindingsData, OfFilesWhoseNamesAreNoTextCanBeWritten) {
  const std::vector<ScriptSource> scripts{{.name = "\xE9.txt", .bytes = "\xFF"}};
  const std::vector<Finding> findings = check(scripts, {});
  EXPECT_THAT(asJSON(findings, scripts), ::testing::HasSubstr("\"file\":\"\xEF\xBF\xBD.txt\""));
  EXPECT_THAT(asSARIF(findings, scripts), ::testing::HasSubstr(R"("uri":"%E9.txt")"));
}

TEST(FindingsData, AsSARIFNameFilesByURIs) {
  const std::vector<ScriptSource> scripts{{.name = "/a b/100%.txt", .bytes = ""}};
  EXPECT_THAT(asSARIF(check(scripts, {}), scripts), ::testing::HasSubstr(R"("uri":"file:\/\/\/a%20b\/100%25.txt")"));
}

}  // namespace
}  // namespace quobrak::host
