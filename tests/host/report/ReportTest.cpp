#include "host/report/Report.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/resource.h>

#include <csignal>
#include <sstream>

#include "host/Subcommand.h"
#include "host/report/JUnitDocument.h"
#include "host/report/ResultsDocument.h"
#include "host/report/Summary.h"
#include "tests/host/report/SampleRun.h"
#include "tests/support/TemporaryFolder.h"

namespace quobrak::host {
namespace {

using ::quobrak::testing::TemporaryFolder;
using ::testing::ElementsAre;

/// What the call says of the environment; empty where it goes through.
std::string complaintOf(const RunRecord& run) {
  try {
    writeResults(run);
  } catch (const EnvironmentError& error) {
    return error.what();
  }
  return "";
}

/// Lets no file of this process grow beyond so many bytes, as a full disk does.
class Room {
 public:
  explicit Room(rlim_t bytes) {
    EXPECT_EQ(::getrlimit(RLIMIT_FSIZE, &before_), 0);
    std::signal(SIGXFSZ, SIG_IGN);
    const rlimit limit{.rlim_cur = bytes, .rlim_max = before_.rlim_max};
    EXPECT_EQ(::setrlimit(RLIMIT_FSIZE, &limit), 0);
  }
  ~Room() {
    ::setrlimit(RLIMIT_FSIZE, &before_);
    std::signal(SIGXFSZ, SIG_DFL);
  }
  Room(const Room&) = delete;
  Room& operator=(const Room&) = delete;

 private:
  rlimit before_{};
};

class ReportTest : public ::testing::Test {
 protected:
  ReportTest() { run.folder = folder.path(); }

  const TemporaryFolder folder;
  RunRecord run = sampleRun();
};

TEST_F(ReportTest, WritesBothFiles) {
  writeResults(run);
  EXPECT_THAT(folder.files(), ElementsAre("junit.xml", "results.json"));
  EXPECT_EQ(folder.read("results.json"), JSONEncoder::encode(resultsDocument(run)) + "\n");
  EXPECT_EQ(folder.read("junit.xml"), junitDocument(run));
}

TEST_F(ReportTest, WritesIntoAFolderThatALinkLeadsTo) {
  std::filesystem::create_directory(folder.path() / "real");
  std::filesystem::create_directory_symlink("real", folder.path() / "link");
  run.folder = folder.path() / "link";
  writeResults(run);
  EXPECT_THAT(folder.files(), ElementsAre("real/junit.xml", "real/results.json"));
}

TEST_F(ReportTest, ReplacesFilesOfAnEarlierRun) {
  folder.write("results.json", "earlier");
  writeResults(run);
  EXPECT_EQ(folder.read("results.json"), JSONEncoder::encode(resultsDocument(run)) + "\n");
}

TEST_F(ReportTest, SaysWhichFileCannotBeWritten) {
  run.folder = folder.path() / "gone\x1b";
  EXPECT_EQ(complaintOf(run), folder.path().string() +
                                  "/gone␛/results.json: The file “gone␛” couldn’t be opened because there is no such "
                                  "file.");
}

TEST_F(ReportTest, LeavesWhatWasThereWhereTheDiskIsFull) {
  folder.write("results.json", "earlier");
  const std::string complaint = [this] {
    const Room room(100);
    return complaintOf(run);
  }();
  EXPECT_EQ(complaint, folder.path().string() +
                           "/results.json: You can’t save the file “results.json” because the volume is out of space.");
  EXPECT_THAT(folder.files(), ElementsAre("results.json"));
  EXPECT_EQ(folder.read("results.json"), "earlier");
}

TEST_F(ReportTest, PrintsTheSummary) {
  std::ostringstream out;
  printSummary(run, Terminal{}, out);
  EXPECT_EQ(out.str(), summaryOf(run, Terminal{}));
}

}  // namespace
}  // namespace quobrak::host
