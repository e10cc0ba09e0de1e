#include <gmock/gmock.h>

#include <algorithm>

#include "tests/process/TestProcessRun.h"

namespace quobrak::testing {

namespace {

namespace fs = std::filesystem;
using ::testing::ElementsAre;

constexpr fs::perms EVERYONE = fs::perms::all;
constexpr fs::perms READ_ONLY = static_cast<fs::perms>(0555);

constexpr const char* SCRIPT = "applicationStart,com.example.test";

/// An ordinary user's run in a Documents directory where some folders cannot be written to.
class ReadOnlyDocuments : public ProcessTest {
 protected:
  ReadOnlyDocuments() {
    start.isUnprivileged = true;
    start.environment["iteration"] = "2";
    fs::permissions(folder.path(), EVERYONE);
    fs::permissions(phone.path(), EVERYONE);
  }

  // A folder that cannot be written to could not be removed either.
  void TearDown() override { permit(""); }

  void makeReadOnly(const std::string& path) const {
    permit("");
    fs::permissions(documents() / path, READ_ONLY);
  }

 private:
  /// Opens everything below Documents to everyone.
  void permit(const std::string& path) const {
    fs::permissions(documents() / path, EVERYONE);
    for (const fs::directory_entry& entry : fs::directory_iterator(documents() / path)) {
      if (entry.is_directory()) {
        permit(entry.path().lexically_relative(documents()).string());
      }
    }
  }
};

class NearlyFullDisk : public ProcessTest {
 protected:
  NearlyFullDisk() {
    // The pictures of the built-in phone are larger than this, statuses are smaller.
    start.largestFile = 4096;
    start.environment.erase("QUOBRAK_PHONE");
  }
};

class FileInTheWay : public ProcessTest {};

}  // namespace

TEST_F(ReadOnlyDocuments, KeepsNoResultsAndFails) {
  addScript("S", "scripts/a.txt", SCRIPT);
  makeReadOnly("");
  const ProcessEnd end = run();
  EXPECT_EQ(end.exitStatus, 1);
  EXPECT_EQ(end.err,
            caughtError("You don’t have permission to save the file “testsStatus.json” in the folder “Documents”."));
  EXPECT_EQ(end.out, testCaseLines("failed", "0.500"));
  EXPECT_TRUE(results().empty());
}

TEST_F(ReadOnlyDocuments, StopsBeforeAnyScriptWhenEarlierMeasuresCannotBeRemoved) {
  addScript("S", "scripts/a.txt", SCRIPT);
  folder.write("Documents/measures/fernwick--Old-1700000000000.json", "{}");
  folder.write("Documents/testsStatus.json", "old");
  makeReadOnly("measures");
  const ProcessEnd end = run();
  EXPECT_EQ(end.exitStatus, 1);
  EXPECT_EQ(end.err, caughtError("“measures” couldn’t be removed because you don’t have permission to access it."));
  EXPECT_THAT(results(), ElementsAre("measures/fernwick--Old-TIME.json", "testsStatus.json"));
  EXPECT_EQ(document("testsStatus.json"), "old");
}

TEST_F(ReadOnlyDocuments, GoesOnWithoutThePicturesOfAScript) {
  folder.write("Documents/tests-results/Closed/a/iteration1/dump/dump.txt", "old");
  fs::create_directories(documents() / "tests-results/Open");
  addScript("Open", "scripts/a.txt", SCRIPT);
  addScript("Closed", "scripts/a.txt", std::nullopt);
  addScript("Closed", "scripts/b.txt", "measureStart,Step\nmeasureStop");
  addScript("Open", "scripts/c.txt", SCRIPT);
  makeReadOnly("tests-results/Closed");
  fs::permissions(documents() / "tests-results/Closed/a", READ_ONLY);
  runsThrough();
  EXPECT_EQ(document("testsStatus.json"),
            statusFile({{"success", ""},
                        {"success", "You don’t have permission to save the file “iteration2” in the folder “a”."},
                        {"failed", "You don’t have permission to save the file “b” in the folder “Closed”."},
                        {"success", ""}}));
  EXPECT_THAT(
      results(),
      ElementsAre("tests-results/Closed/a/iteration1/dump/dump.txt", "tests-results/Open/a/iteration2/dump/dump.txt",
                  "tests-results/Open/a/iteration2/screenshots/001_success.png",
                  "tests-results/Open/c/iteration2/dump/dump.txt",
                  "tests-results/Open/c/iteration2/screenshots/001_success.png", "testsStatus.json"));
}

TEST_F(ReadOnlyDocuments, KeepsWhatWasWrittenBeforeTheResultsCouldNotBe) {
  fs::create_directories(documents() / "tests-results");
  addScript("S", "scripts/a.txt", std::string(SCRIPT) + "\nmeasureStart,Step\nmeasureStop");
  makeReadOnly("");
  const ProcessEnd end = run();
  EXPECT_EQ(end.exitStatus, 1);
  EXPECT_EQ(end.err, caughtError("You don’t have permission to save the file “measures” in the folder “Documents”."));
  EXPECT_THAT(results(), ElementsAre("tests-results/S/a/iteration2/dump/dump.txt",
                                     "tests-results/S/a/iteration2/screenshots/001_Step_start.png",
                                     "tests-results/S/a/iteration2/screenshots/002_Step_stop.png",
                                     "tests-results/S/a/iteration2/screenshots/003_success.png"));
}

TEST_F(ReadOnlyDocuments, CannotReadAScriptThatIsClosed) {
  addScript("S", "scripts/a.txt", SCRIPT);
  makeReadOnly("");
  fs::permissions(documents() / "scripts/a.txt", fs::perms::none);
  const ProcessEnd end = run();
  EXPECT_EQ(end.exitStatus, 1);
  EXPECT_EQ(end.err, caughtError("The file scripts/a.txt is missing in the document directory"));
}

TEST_F(NearlyFullDisk, LosesPicturesAndKeepsTheRest) {
  folder.write("Documents/tests-results/S/a/iteration1/dump/dump.txt", "old");
  start.environment["iteration"] = "2";
  addScript("S", "scripts/a.txt", "applicationStart,com.example.shop");
  addScript("S", "scripts/b.txt", "measureStart,Step\nmeasureStop");
  runsThrough();
  const std::string outOfSpace = " because the volume is out of space.";
  EXPECT_EQ(document("testsStatus.json"),
            statusFile({{"success", "You can’t save the file “001_success.png”" + outOfSpace},
                        {"failed", "You can’t save the file “001_failed.png”" + outOfSpace}}));
  EXPECT_THAT(results(), ElementsAre("tests-results/S/a/iteration1/dump/dump.txt", "testsStatus.json"))
      << "no half-written file is left";
}

TEST_F(NearlyFullDisk, KeepsTheEarlierStatusFileWhenTheNewOneCannotBeWritten) {
  folder.write("Documents/testsStatus.json", "old");
  start.environment["iteration"] = "2";
  addScript("S", "scripts/a.txt", "");
  // Less than any status takes; what the process prints on standard error is cut off as well.
  start.largestFile = 60;
  const ProcessEnd end = run();
  EXPECT_EQ(end.exitStatus, 1);
  EXPECT_EQ(document("testsStatus.json"), "old");
  EXPECT_THAT(results(), ElementsAre("testsStatus.json"));
}

TEST_F(FileInTheWay, WhereTheResultsOfScriptsShouldGo) {
  folder.write("Documents/tests-results", "a file");
  start.environment["iteration"] = "2";
  addScript("S", "scripts/a.txt", SCRIPT);
  runsThrough();
  EXPECT_EQ(document("testsStatus.json"),
            statusFile({{"success",
                         "The file “tests-results” couldn’t be saved in the folder “Documents” because a file with the "
                         "same name already exists."}}));
  EXPECT_EQ(document("tests-results"), "a file");
}

TEST_F(FileInTheWay, IsRemovedByTheFirstIteration) {
  folder.write("Documents/tests-results", "a file");
  folder.write("Documents/measures", "a file");
  addScript("S", "scripts/a.txt", std::string(SCRIPT) + "\nmeasureStart,Step\nmeasureStop");
  runsThrough();
  EXPECT_EQ(document("testsStatus.json"), statusFile({{"success", ""}}));
  EXPECT_EQ(measures().size(), 1U);
}

TEST_F(FileInTheWay, AFolderWhereTheStatusFileShouldStand) {
  fs::create_directories(documents() / "testsStatus.json");
  start.environment["iteration"] = "2";
  addScript("S", "scripts/a.txt", SCRIPT);
  const ProcessEnd end = run();
  EXPECT_EQ(end.exitStatus, 1);
  EXPECT_EQ(end.err, caughtError("The file “testsStatus.json” couldn’t be saved in the folder “Documents”."));
  EXPECT_THAT(results(), ElementsAre("tests-results/S/a/iteration2/dump/dump.txt",
                                     "tests-results/S/a/iteration2/screenshots/001_success.png"));
}

}  // namespace quobrak::testing
