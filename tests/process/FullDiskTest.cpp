#include <sched.h>
#include <sys/mount.h>
#include <unistd.h>

#include <algorithm>
#include <cstdlib>
#include <fstream>
#include <iostream>
#include <regex>

#include "tests/process/TestProcessRun.h"

namespace quobrak::testing {

namespace {

namespace fs = std::filesystem;

/// Lets an ordinary user be root among mounts of its own.
bool becomeRootOfOwnMounts() {
  const std::string user = "0 " + std::to_string(::getuid()) + " 1";
  const std::string group = "0 " + std::to_string(::getgid()) + " 1";
  if (::unshare(CLONE_NEWUSER | CLONE_NEWNS) != 0) {
    return false;
  }
  std::ofstream("/proc/self/setgroups") << "deny";
  std::ofstream("/proc/self/uid_map") << user;
  std::ofstream("/proc/self/gid_map") << group;
  return true;
}

/// Mounts that nobody else sees, and that go with this process. Where there can be none, the tests are skipped before
/// anything of them has run.
class OwnMounts final : public ::testing::Environment {
 public:
  void SetUp() override {
    const bool isSeparate = (::geteuid() == 0 && ::unshare(CLONE_NEWNS) == 0) || becomeRootOfOwnMounts();
    if (!isSeparate || ::mount("none", "/", nullptr, MS_REC | MS_PRIVATE, nullptr) != 0) {
      std::cout << "skipped: a disk to be filled can only be mounted by root, or in a user namespace" << std::endl;
      constexpr int SKIPPED = 77;
      std::exit(SKIPPED);
    }
  }
};

// Google Test deletes it.
const ::testing::Environment* const OWN_MOUNTS = ::testing::AddGlobalTestEnvironment(new OwnMounts);

/// A disk in memory, at a folder.
class Disk {
 public:
  /// `room` is the file system's, such as "size=64k".
  Disk(fs::path folder, const std::string& room) : folder_(std::move(folder)) {
    EXPECT_EQ(::mount("tmpfs", folder_.c_str(), "tmpfs", 0, room.c_str()), 0) << "no disk with " << room;
  }
  ~Disk() { ::umount2(folder_.c_str(), MNT_DETACH); }
  Disk(const Disk&) = delete;
  Disk& operator=(const Disk&) = delete;

 private:
  fs::path folder_;
};

std::string sizeInPages(std::size_t count) {
  return "size=" + std::to_string(count * static_cast<std::size_t>(::sysconf(_SC_PAGESIZE)));
}

constexpr const char* UNLIMITED = "size=64m";

std::string sizeInNodes(std::size_t count) {
  return "nr_inodes=" + std::to_string(count);
}

/// Contents by path, with the time in the names of measure files as "TIME".
using Files = std::map<std::string, std::string>;

std::string withoutTime(const std::string& text) {
  static const std::regex TIME(R"(-\d{13}\.json)");
  return std::regex_replace(text, TIME, "-TIME.json");
}

const std::string EARLIER_MEASURE = "measures/fernwick--Earlier-1600000000000.json";
const std::string MEASURE = "measures/fernwick--Step-TIME.json";
const std::string STATUS_FILE = "testsStatus.json";

const Files EARLIER{{EARLIER_MEASURE, "{}"},
                    {"other.txt", "someone else's"},
                    {"scripts/a.txt", "applicationStart,com.example.test\nmeasureStart,Step\nmeasureStop"},
                    {"scripts/b.txt", "applicationStart,com.example.test\nnope"},
                    {"tests-results/S/a/iteration1/dump/dump.txt", "earlier"},
                    {STATUS_FILE, R"([{"stackTrace":"","status":"earlier"}])"}};

/// What the run makes, in this order. A folder ends with a slash.
const std::vector<std::string> MADE{"tests-results/S/a/iteration2/",
                                    "tests-results/S/a/iteration2/screenshots/",
                                    "tests-results/S/a/iteration2/screenshots/001_Step_start.png",
                                    "tests-results/S/a/iteration2/screenshots/002_Step_stop.png",
                                    "tests-results/S/a/iteration2/screenshots/003_success.png",
                                    "tests-results/S/a/iteration2/dump/",
                                    "tests-results/S/a/iteration2/dump/dump.txt",
                                    "tests-results/S/b/",
                                    "tests-results/S/b/iteration2/",
                                    "tests-results/S/b/iteration2/screenshots/",
                                    "tests-results/S/b/iteration2/screenshots/001_failed.png",
                                    "tests-results/S/b/iteration2/dump/",
                                    "tests-results/S/b/iteration2/dump/dump.txt",
                                    "measures/",
                                    MEASURE,
                                    STATUS_FILE};

bool isFolder(const std::string& path) {
  return path.ends_with('/');
}

std::vector<std::string> filesMade() {
  std::vector<std::string> files = MADE;
  std::erase_if(files, isFolder);
  return files;
}

/// The path's last component, without the slash of a folder.
std::string nameOf(const std::string& path) {
  const std::string plain = isFolder(path) ? path.substr(0, path.size() - 1) : path;
  return plain.substr(plain.rfind('/') + 1);
}

std::string outOfSpace(const std::string& name) {
  return "You can’t save the file “" + name + "” because the volume is out of space.";
}

/// Runs on disks of many sizes.
class FullDisk : public ProcessTest {
 protected:
  struct Left {
    ProcessEnd end;
    Files files;
  };

  FullDisk() {
    start.environment["iteration"] = "2";
    addScript("S", "scripts/a.txt", std::nullopt);
    addScript("S", "scripts/b.txt", std::nullopt);
  }

  /// Runs where there is so much room, and the earlier results.
  Left runWith(const std::string& room) const {
    const Disk disk(documents(), room);
    for (const auto& [path, content] : EARLIER) {
      folder.write("Documents/" + path, content);
      EXPECT_EQ(document(path), content) << "no room for what was there before";
    }
    Left left{.end = run(), .files = {}};
    for (const auto& [path, content] : snapshot(documents())) {
      if (content != "folder") {
        left.files.emplace(withoutTime(path), content);
      }
    }
    return left;
  }

  /// Of the things in `made`, which take one unit of room each, the first `count` have found room.
  static void expectFirst(std::size_t count, const std::vector<std::string>& made, const Left& left,
                          const Left& unlimited) {
    SCOPED_TRACE("room for " + std::to_string(count));
    const std::vector<std::string> fitting(made.begin(), made.begin() + static_cast<std::ptrdiff_t>(count));
    Files expected = EARLIER;
    expected.erase(EARLIER_MEASURE);
    for (const std::string& path : fitting) {
      if (!isFolder(path)) {
        expected[path] = unlimited.files.at(path);
      }
    }
    EXPECT_EQ(withoutTimesOfSteps(left.files), withoutTimesOfSteps(expected));

    const auto firstResult = std::find_if(made.begin(), made.end(), [](const std::string& path) {
      return path.starts_with("measures/") || path == STATUS_FILE;
    });
    const auto missing = std::max(firstResult, made.begin() + static_cast<std::ptrdiff_t>(count));
    EXPECT_EQ(left.end.exitStatus, missing == made.end() ? 0 : 1);
    EXPECT_EQ(withoutTime(left.end.err), missing == made.end() ? "" : caughtError(outOfSpace(nameOf(*missing))));
  }

 private:
  /// Runs differ in when they were.
  static Files withoutTimesOfSteps(Files files) {
    static const std::regex TIME(R"("time":\d{13},)");
    if (const auto measure = files.find(MEASURE); measure != files.end()) {
      measure->second = std::regex_replace(measure->second, TIME, R"("time":TIME,)");
    }
    return files;
  }
};

}  // namespace

TEST_F(FullDisk, KeepsTheFilesThatFoundRoomAndTheEarlierStatuses) {
  const std::vector<std::string> files = filesMade();
  // All earlier files, each smaller than a page, but the measure, which is cleared.
  const std::size_t used = EARLIER.size() - 1;
  const Left unlimited = runWith(UNLIMITED);
  for (std::size_t count = 1; count <= files.size(); ++count) {
    expectFirst(count, files, runWith(sizeInPages(used + count)), unlimited);
  }
}

TEST_F(FullDisk, KeepsThemWhereItIsFilesAndFoldersThatAreTooMany) {
  // The earlier files and their folders: the Documents directory, "scripts", and five of "tests-results".
  const std::size_t used = EARLIER.size() - 1 + 7;
  const Left unlimited = runWith(UNLIMITED);
  // With fewer there is no room for its first picture, and the step does not begin.
  for (std::size_t count = 3; count <= MADE.size(); ++count) {
    expectFirst(count, MADE, runWith(sizeInNodes(used + count)), unlimited);
  }
}

TEST_F(FullDisk, LeavesNothingOfAPictureThatHasRoomInPart) {
  start.environment.erase("QUOBRAK_PHONE");
  constexpr std::size_t LESS_THAN_A_PICTURE = 4;
  const Left left = runWith(sizeInPages(EARLIER.size() - 1 + LESS_THAN_A_PICTURE));
  EXPECT_EQ(left.end.exitStatus, 0);
  EXPECT_EQ(left.files.at(STATUS_FILE),
            statusFile({{"failed", outOfSpace("001_failed.png")}, {"failed", outOfSpace("001_failed.png")}}));
  Files others = left.files;
  others.erase(STATUS_FILE);
  Files expected = EARLIER;
  expected.erase(STATUS_FILE);
  expected.erase(EARLIER_MEASURE);
  EXPECT_EQ(others, expected);
}

TEST_F(FullDisk, ADocumentsDirectoryThatCannotBeMadeIsRefused) {
  // One for the disk's own folder.
  const Disk disk(documents(), sizeInNodes(2));
  start.environment["QUOBRAK_DOCUMENTS"] = "Documents/new/folder";
  const ProcessEnd end = run();
  EXPECT_EQ(end.exitStatus, 2);
  EXPECT_EQ(end.err,
            "configuration error: QUOBRAK_DOCUMENTS is \"Documents/new/folder\", which cannot be made: No space "
            "left on device\n");
  EXPECT_TRUE(fs::is_empty(documents()));
}

}  // namespace quobrak::testing
