#include <gmock/gmock.h>

#include <algorithm>
#include <fstream>
#include <iterator>
#include <ostream>
#include <sstream>

#include "tests/process/TestProcessRun.h"

namespace quobrak::testing {

namespace {

namespace fs = std::filesystem;
using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::Key;

const fs::path PHONES = fs::path(QUOBRAK_SOURCE_FOLDER) / "examples/phones";

/// A script in a folder "scripts" beside a description of a phone.
struct ExampleScript {
  std::string phone;
  std::string name;

  fs::path path() const { return PHONES / phone / "scripts" / (name + ".txt"); }
};

std::string contentOf(const fs::path& file) {
  std::ifstream stream(file, std::ios::binary);
  return {std::istreambuf_iterator<char>(stream), std::istreambuf_iterator<char>()};
}

/// How the test library shows it.
std::ostream& operator<<(std::ostream& stream, const ExampleScript& script) {
  return stream << script.phone << "/" << script.name;
}

/// In ascending order.
std::vector<std::string> namesIn(const fs::path& folder) {
  std::vector<std::string> names;
  for (const fs::directory_entry& entry : fs::directory_iterator(folder)) {
    names.push_back(entry.path().filename().string());
  }
  std::sort(names.begin(), names.end());
  return names;
}

std::vector<ExampleScript> exampleScriptsOf(const std::string& phone) {
  std::vector<ExampleScript> scripts;
  for (const std::string& file : namesIn(PHONES / phone / "scripts")) {
    scripts.push_back({.phone = phone, .name = fs::path(file).stem().string()});
  }
  return scripts;
}

std::vector<ExampleScript> exampleScripts() {
  std::vector<ExampleScript> scripts;
  for (const std::string& phone : namesIn(PHONES)) {
    const std::vector<ExampleScript> some = exampleScriptsOf(phone);
    scripts.insert(scripts.end(), some.begin(), some.end());
  }
  return scripts;
}

/// What the script's comments "# expect KEY: TEXT" say: texts by key. Several of one key are one text.
std::map<std::string, std::string> expectationsIn(const std::string& script) {
  constexpr std::string_view MARK = "# expect ";
  std::map<std::string, std::string> expectations;
  std::istringstream lines(script);
  for (std::string line; std::getline(lines, line);) {
    const std::size_t colon = line.find(": ");
    if (line.starts_with(MARK) && colon != line.npos) {
      std::string& text = expectations[line.substr(MARK.size(), colon - MARK.size())];
      text += (text.empty() ? "" : ", ") + line.substr(colon + 2);
    }
  }
  return expectations;
}

class ExampleRun : public ProcessTest {
 protected:
  void add(const ExampleScript& script) {
    start.environment["QUOBRAK_PHONE"] = (PHONES / script.phone).string();
    addScript("Examples", "scripts/" + script.name + ".txt", contentOf(script.path()));
  }

  /// The measured steps, in the order in which they were written, each with its duration.
  std::string steps() const {
    std::string text;
    for (const std::string& content : measures()) {
      const JSONValue json = JSONDecoder::decode(content);
      const JSONReader measure(json);
      text += (text.empty() ? "" : ", ") + measure.member("test").text() + " " +
              std::to_string(measure.member("testTime").integer()) + " ms";
    }
    return text;
  }
};

class ExampleScripts : public ExampleRun, public ::testing::WithParamInterface<ExampleScript> {};

class ExamplePhones : public ExampleRun, public ::testing::WithParamInterface<std::string> {};

}  // namespace

TEST_P(ExampleScripts, DoWhatTheirCommentsSay) {
  add(GetParam());
  runsThrough();

  const std::string results = "tests-results/Examples/" + GetParam().name + "/iteration1";
  EXPECT_EQ(document("testsStatus.json"), statusFile({{"success", ""}}));
  const std::map<std::string, std::string> expected = expectationsIn(contentOf(GetParam().path()));
  ASSERT_THAT(expected, ElementsAre(Key("dump"), Key("last picture"), Key("steps")));
  EXPECT_EQ(steps(), expected.at("steps"));
  EXPECT_EQ(namesIn(documents() / results / "screenshots").back(), expected.at("last picture"));
  EXPECT_THAT(document(results + "/dump/dump.txt"), HasSubstr(expected.at("dump")));
}

INSTANTIATE_TEST_SUITE_P(Of, ExampleScripts, ::testing::ValuesIn(exampleScripts()),
                         [](const auto& script) { return script.param.phone + "_" + script.param.name; });

TEST_P(ExamplePhones, RunTheirScriptsOneAfterTheOther) {
  std::vector<std::pair<std::string, std::string>> successes;
  for (const ExampleScript& script : exampleScriptsOf(GetParam())) {
    add(script);
    successes.emplace_back("success", "");
  }
  runsThrough();
  EXPECT_GE(successes.size(), 2U);
  EXPECT_EQ(document("testsStatus.json"), statusFile(successes));
}

INSTANTIATE_TEST_SUITE_P(Of, ExamplePhones, ::testing::Values("languages", "market", "motion"),
                         [](const auto& phone) { return phone.param; });

TEST(ExamplePhonesFolder, HoldsThePhonesThatAreTried) {
  EXPECT_THAT(namesIn(PHONES), ElementsAre("languages", "market", "motion"));
}

}  // namespace quobrak::testing
