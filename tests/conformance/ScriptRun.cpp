#include "tests/conformance/ScriptRun.h"

#include <algorithm>
#include <filesystem>
#include <memory>

#include "platform/foundation/ConfinedFileManager.h"
#include "platform/foundation/JSON.h"
#include "quobrakUITests/quobrakUITests.h"
#include "tests/quobrakUITests/Environment.h"

namespace quobrak::conformance {

namespace {

std::string folderOf(const std::string& script) {
  return "tests-results/Shop/" + script + "/iteration1/";
}

}  // namespace

ScriptRun::ScriptRun() {
  FileManager::install(std::make_unique<ConfinedFileManager>(documents_.path().string()));
  testing::setVariable("class", "dslTestsSuites");
  testing::setVariable("iteration", "1");
}

void ScriptRun::add(const std::string& name, const std::string& script) {
  const std::string number = std::to_string(++scripts_);
  documents_.write(name, script);
  testing::setVariable("testFileNumber", number);
  testing::setVariable("testFileSuiteName" + number, "Shop");
  testing::setVariable("testFilePath" + number, name);
}

void ScriptRun::run() {
  quobrakUITests test;
  test.setUpWithError();
  test.testMain();
}

std::vector<std::string> ScriptRun::statuses() const {
  std::vector<std::string> all;
  const JSONValue read = JSONDecoder::decode(documents_.read("testsStatus.json"));
  for (const JSONReader& status : JSONReader(read).elements()) {
    const std::string reason = status.member("stackTrace").text();
    all.push_back(status.member("status").text() + (reason.empty() ? "" : ": " + reason));
  }
  return all;
}

std::vector<std::string> ScriptRun::steps() const {
  std::vector<std::string> names;
  for (const std::string& file : namesIn("measures")) {
    names.push_back(JSONReader(JSONDecoder::decode(documents_.read("measures/" + file))).member("test").text());
  }
  std::sort(names.begin(), names.end());
  return names;
}

std::vector<std::string> ScriptRun::picturesOf(const std::string& script) const {
  return namesIn(folderOf(script) + "screenshots");
}

std::string ScriptRun::dumpOf(const std::string& script) const {
  return documents_.read(folderOf(script) + "dump/dump.txt");
}

std::vector<std::string> ScriptRun::namesIn(const std::string& folder) const {
  std::vector<std::string> names;
  if (std::filesystem::exists(documents_.path() / folder)) {
    for (const auto& entry : std::filesystem::directory_iterator(documents_.path() / folder)) {
      names.push_back(entry.path().filename().string());
    }
  }
  std::sort(names.begin(), names.end());
  return names;
}

}  // namespace quobrak::conformance
