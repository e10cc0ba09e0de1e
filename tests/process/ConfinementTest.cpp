#include <gmock/gmock.h>

#include "tests/process/TestProcessRun.h"

namespace quobrak::testing {

namespace {

namespace fs = std::filesystem;
using ::testing::Contains;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

/// A folder beside Documents, which no run may read from or write to.
class Confinement : public ProcessTest {
 protected:
  Confinement() {
    folder.write("outside/secret.txt", "applicationStart,com.example.test");
    folder.write("outside/measures/fernwick--Old-1700000000000.json", "{}");
    before_ = outside();
  }

  void TearDown() override { EXPECT_EQ(outside(), before_); }

  void link(const fs::path& target, const std::string& path) const {
    fs::create_directories((documents() / path).parent_path());
    fs::create_symlink(target, documents() / path);
  }

  void expectMissingScript(const std::string& path, const std::string& cleanedPath) {
    start.environment["testFileNumber"] = "1";
    start.environment["testFileSuiteName1"] = "S";
    start.environment["testFilePath1"] = path;
    const ProcessEnd end = run();
    EXPECT_EQ(end.exitStatus, 1) << path;
    EXPECT_EQ(end.err, caughtError("The file " + cleanedPath + " is missing in the document directory"));
    EXPECT_THAT(results(), ::testing::Not(Contains("testsStatus.json")));
  }

  /// A script whose results cannot be kept where they were to go; the run itself goes on.
  void expectStatus(const std::string& status, const std::string& stackTrace) const {
    const ProcessEnd end = run();
    EXPECT_EQ(end.exitStatus, 0);
    EXPECT_EQ(end.err, "");
    EXPECT_EQ(document("testsStatus.json"), statusFile({{status, stackTrace}}));
  }

 private:
  /// All that stands beside Documents.
  std::map<std::string, std::string> outside() const {
    std::map<std::string, std::string> found = snapshot(folder.path());
    for (auto entry = found.begin(); entry != found.end();) {
      entry = entry->first.starts_with("Documents/") ? found.erase(entry) : std::next(entry);
    }
    return found;
  }

  std::map<std::string, std::string> before_;
};

}  // namespace

TEST_F(Confinement, AScriptOutsideIsMissing) {
  fs::create_directory(documents() / "scripts");
  expectMissingScript("../outside/secret.txt", "../outside/secret.txt");
  expectMissingScript("scripts/../../outside/secret.txt", "scripts/../../outside/secret.txt");
  expectMissingScript("/Documents/../outside/secret.txt", "/../outside/secret.txt");
  const std::string absolute = (folder.path() / "outside/secret.txt").string();
  expectMissingScript(absolute, absolute);
}

TEST_F(Confinement, AScriptThatALinkFindsOutsideIsMissing) {
  link(folder.path() / "outside/secret.txt", "scripts/absolute.txt");
  link("../../outside/secret.txt", "scripts/relative.txt");
  link("../outside", "folder");
  link("../../outside/no/such", "scripts/dangling.txt");
  for (const std::string path :
       {"scripts/absolute.txt", "scripts/relative.txt", "folder/secret.txt", "scripts/dangling.txt"}) {
    expectMissingScript(path, path);
  }
}

TEST_F(Confinement, APathThatStaysInsideIsRead) {
  addScript("S", "scripts/../scripts/a.txt", "applicationStart,com.example.test");
  link("a.txt", "scripts/link.txt");
  addScript("S", "scripts/link.txt", std::nullopt);
  runsThrough();
  EXPECT_EQ(document("testsStatus.json"), statusFile({{"success", ""}, {"success", ""}}));
}

TEST_F(Confinement, ASuiteNameThatLeadsOutsideKeepsNoResults) {
  addScript("../../..", "scripts/a.txt", "applicationStart,com.example.test");
  expectStatus("success", "You don’t have permission to save the file “screenshots” in the folder “iteration1”.");
  EXPECT_THAT(results(), ElementsAre("testsStatus.json"));
}

TEST_F(Confinement, ASuiteNameThatStaysInsideKeepsItsResults) {
  start.environment["iteration"] = "2";
  fs::create_directories(documents() / "tests-results/S");
  addScript("S/../../kept", "scripts/a.txt", "applicationStart,com.example.test");
  expectStatus("success", "");
  EXPECT_THAT(results(), ElementsAre("kept/a/iteration2/dump/dump.txt", "kept/a/iteration2/screenshots/001_success.png",
                                     "testsStatus.json"));
}

TEST_F(Confinement, AStepWhosePicturesWouldStandOutsideFailsItsScript) {
  // The first ".." only makes a folder's name longer: "001_..".
  addScript("S", "scripts/a.txt",
            "applicationStart,com.example.test\nmeasureStart,../../../../../../../../escape\nmeasureStop");
  expectStatus("failed", "You don’t have permission to save the file “..” in the folder “..”.");
  EXPECT_THAT(results(), ElementsAre("tests-results/S/a/iteration1/dump/dump.txt",
                                     "tests-results/S/a/iteration1/screenshots/001_failed.png", "testsStatus.json"));
}

TEST_F(Confinement, AStepWhoseMeasureWouldStandOutsideFailsTheRun) {
  // Two folders above "measures" is outside; five above the pictures of a script is not.
  addScript("S", "scripts/a.txt",
            "applicationStart,com.example.test\nmeasureStart,../../../../../../escape\nmeasureStop");
  const ProcessEnd end = run();
  EXPECT_EQ(end.exitStatus, 1);
  EXPECT_EQ(end.err, caughtError("You don’t have permission to save the file “..” in the folder “..”."));
  EXPECT_THAT(results(), ElementsAre("tests-results/S/a/iteration1/dump/dump.txt",
                                     "tests-results/S/a/iteration1/screenshots/003_success.png",
                                     "tests-results/escape_start.png", "tests-results/escape_stop.png"));
}

TEST_F(Confinement, AStepNameWithASlashMakesSubfolders) {
  addScript("S", "scripts/a.txt", "applicationStart,com.example.test\nmeasureStart,log/in\nmeasureStop");
  expectStatus("success", "");
  EXPECT_THAT(results(),
              ElementsAre("measures/fernwick--log/in-TIME.json", "tests-results/S/a/iteration1/dump/dump.txt",
                          "tests-results/S/a/iteration1/screenshots/001_log/in_start.png",
                          "tests-results/S/a/iteration1/screenshots/002_log/in_stop.png",
                          "tests-results/S/a/iteration1/screenshots/003_success.png", "testsStatus.json"));
  ASSERT_EQ(measures().size(), 1U);
  EXPECT_THAT(measures()[0], ::testing::HasSubstr(R"("test":"log\/in")"));
}

TEST_F(Confinement, ASuiteFolderThatIsALinkToOutsideReceivesNothing) {
  start.environment["iteration"] = "2";
  addScript("absolute", "scripts/a.txt", "applicationStart,com.example.test");
  addScript("relative", "scripts/a.txt", std::nullopt);
  addScript("dangling", "scripts/a.txt", std::nullopt);
  link(folder.path() / "outside", "tests-results/absolute");
  link("../../outside", "tests-results/relative");
  link("../../outside/new", "tests-results/dangling");
  runsThrough();
  const std::string refusal = "You don’t have permission to save the file “";
  const std::string where = "” in the folder “tests-results”.";
  EXPECT_EQ(document("testsStatus.json"), statusFile({{"success", refusal + "absolute" + where},
                                                      {"success", refusal + "relative" + where},
                                                      {"success", refusal + "dangling" + where}}));
}

TEST_F(Confinement, AFolderOfMeasuresThatIsALinkIsClearedWithoutWhatItLeadsTo) {
  addScript("S", "scripts/a.txt", "applicationStart,com.example.test\nmeasureStart,Step\nmeasureStop");
  link("../outside/measures", "measures");
  expectStatus("success", "");
  EXPECT_EQ(measures().size(), 1U);
  EXPECT_TRUE(fs::symlink_status(documents() / "measures").type() == fs::file_type::directory);
}

TEST_F(Confinement, AFolderOfMeasuresThatIsADanglingLinkReceivesNothing) {
  addScript("S", "scripts/a.txt", "applicationStart,com.example.test\nmeasureStart,Step\nmeasureStop");
  link("../outside/new", "measures");
  const ProcessEnd end = run();
  EXPECT_EQ(end.exitStatus, 1);
  EXPECT_EQ(end.err, caughtError("You don’t have permission to save the file “measures” in the folder “Documents”."));
  EXPECT_THAT(results(), ::testing::Not(Contains("testsStatus.json")));
}

TEST_F(Confinement, AStatusFileThatIsALinkToOutsideIsNotWrittenThrough) {
  start.environment["iteration"] = "2";
  addScript("S", "scripts/a.txt", "applicationStart,com.example.test");
  link("../outside/secret.txt", "testsStatus.json");
  const ProcessEnd end = run();
  EXPECT_EQ(end.exitStatus, 1);
  EXPECT_EQ(end.err,
            caughtError("You don’t have permission to save the file “testsStatus.json” in the folder “Documents”."));
}

TEST_F(Confinement, DocumentsMayItselfBeReachedThroughALink) {
  fs::create_directory_symlink("Documents", folder.path() / "link");
  start.environment["QUOBRAK_DOCUMENTS"] = "link";
  addScript("S", "scripts/a.txt", "applicationStart,com.example.test");
  expectStatus("success", "");
  fs::remove(folder.path() / "link");
}

}  // namespace quobrak::testing
