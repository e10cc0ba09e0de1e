#include <gmock/gmock.h>

#include <algorithm>

#include "tests/host/process/HostRun.h"
#include "tests/process/OwnDisk.h"

namespace quobrak::testing {

namespace {

namespace fs = std::filesystem;
using ::testing::AnyOf;
using ::testing::EndsWith;
using ::testing::HasSubstr;

constexpr const char* MEASURING = "applicationStart,com.example.test\nmeasureStart,Step\npause,40\nmeasureStop";

/// Runs on disks of many sizes.
class RunOnAFullDisk : public HostRun {
 protected:
  RunOnAFullDisk() {
    folder.write("Shop/order.txt", MEASURING);
    fs::create_directory(folder.path() / "out");
  }

  std::int64_t durationOfTheStep() const {
    const JSONValue document = results();
    const JSONReader script =
        JSONReader(document).member("iterations").elements().at(0).member("scripts").elements().at(0);
    return script.member("steps").elements().at(0).member("duration").integer();
  }

  /// Whether there was room for all.
  bool runsThroughOrSaysWhy(const std::string& room) const {
    SCOPED_TRACE(room);
    const OwnDisk disk(folder.path() / "out", room);
    const ProcessEnd end = run({"Shop"});
    if (fs::exists(folder.path() / "out/results.json")) {
      EXPECT_EQ(JSONReader(results()).member("format").integer(), 1) << "a file that was written in part";
    }
    if (fs::exists(folder.path() / "out/junit.xml")) {
      EXPECT_THAT(folder.read("out/junit.xml"), EndsWith("</testsuites>\n"));
    }
    if (end.exitStatus == 0) {
      EXPECT_EQ(end.err, "");
      EXPECT_EQ(durationOfTheStep(), 40);
      return true;
    }
    EXPECT_EQ(end.exitStatus, 4) << end.err;
    EXPECT_THAT(end.err, AnyOf(HasSubstr("No space left on device"), HasSubstr("because the volume is out of space")));
    return false;
  }

  /// How much room it took until there was enough; at most `most`.
  template <class Room>
  std::size_t roomNeeded(std::size_t least, std::size_t most, Room room) const {
    std::size_t count = least;
    while (count < most && !runsThroughOrSaysWhy(room(count))) {
      ++count;
    }
    return count;
  }
};

}  // namespace

TEST_F(RunOnAFullDisk, SaysWhyAndLeavesNothingInPart) {
  constexpr std::size_t MORE_THAN_ENOUGH = 200;
  const std::size_t needed = roomNeeded(1, MORE_THAN_ENOUGH, sizeInPages);
  EXPECT_GT(needed, 10U);
  EXPECT_LT(needed, MORE_THAN_ENOUGH);
}

TEST_F(RunOnAFullDisk, SaysWhyWhereItIsFilesAndFoldersThatAreTooMany) {
  // One for the disk's own folder.
  constexpr std::size_t LEAST = 2;
  constexpr std::size_t MORE_THAN_ENOUGH = 100;
  const std::size_t needed = roomNeeded(LEAST, MORE_THAN_ENOUGH, sizeInNodes);
  EXPECT_GT(needed, 10U);
  EXPECT_LT(needed, MORE_THAN_ENOUGH);
}

}  // namespace quobrak::testing
