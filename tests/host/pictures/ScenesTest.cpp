#include "host/pictures/Scenes.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <fstream>
#include <iterator>
#include <stdexcept>

#include "tests/support/TemporaryFolder.h"

namespace quobrak::host {
namespace {

namespace fs = std::filesystem;
using ::testing::AllOf;
using ::testing::ElementsAreArray;
using ::testing::HasSubstr;
using ::testing::Not;

const fs::path PICTURES = fs::path(QUOBRAK_SOURCE_FOLDER) / "docs" / "pictures";

std::string played(const Scene& scene) {
  const quobrak::testing::TemporaryFolder folder;
  return pictureOf(scene, {.programs = QUOBRAK_PROGRAMS, .sources = QUOBRAK_SOURCE_FOLDER, .folder = folder.path()});
}

std::string contentOf(const fs::path& path) {
  std::ifstream file(path, std::ios::binary);
  return {std::istreambuf_iterator<char>(file), {}};
}

/// What a person reads in a scene of these lines.
std::string playedLine(const std::string& preparation, const std::string& line, const std::vector<Mask>& masks = {}) {
  return played({.name = "test", .title = "Test", .preparation = preparation, .lines = {line}, .masks = masks});
}

TEST(Scenes, ArePlayedByAShellInColourOnBothStreams) {
  const std::string picture = playedLine("echo one >file", "cat file; echo two >&2; echo $CLICOLOR_FORCE-$LANG; false");
  EXPECT_THAT(picture, AllOf(HasSubstr(">one</text>"), HasSubstr(">two</text>"), HasSubstr(">1-C.UTF-8</text>")));
}

TEST(Scenes, HaveTheExamplesAtHandAndDoNotTellWhereTheyArePlayed) {
  EXPECT_THAT(playedLine("", "ls -d $PWD/examples/shop"), HasSubstr(">~/examples/shop</text>"));
}

TEST(Scenes, KnowNothingOfWhoPlaysThem) {
  ::setenv("PRODUCT", "Lamp", 1);
  EXPECT_THAT(playedLine("", "echo \"[$PRODUCT]\""), HasSubstr(">[]</text>"));
}

TEST(Scenes, HideWhatTellsTheHour) {
  EXPECT_THAT(playedLine("", "echo at 12:30", {{.pattern = "[0-9]+:[0-9]+", .replacement = "HH:MM"}}),
              HasSubstr(">at HH:MM</text>"));
}

TEST(Scenes, AreNotPlayedWhereSomethingIsMissing) {
  EXPECT_THROW(playedLine("false", "true"), std::runtime_error);
  EXPECT_THROW(playedLine("", "no-such-program"), std::runtime_error);
}

/// ./dev docs draws them anew.
TEST(Scenes, AreWhatThePicturesOfTheDocumentationShow) {
  for (const Scene& scene : scenes()) {
    EXPECT_EQ(played(scene), contentOf(PICTURES / (scene.name + ".svg"))) << scene.name;
  }
}

TEST(Scenes, HaveOnePictureEach) {
  std::vector<std::string> expected;
  for (const Scene& scene : scenes()) {
    expected.push_back(scene.name + ".svg");
  }
  std::sort(expected.begin(), expected.end());
  std::vector<std::string> found;
  for (const fs::directory_entry& entry : fs::directory_iterator(PICTURES)) {
    found.push_back(entry.path().filename().string());
  }
  std::sort(found.begin(), found.end());
  EXPECT_THAT(found, ElementsAreArray(expected));
}

}  // namespace
}  // namespace quobrak::host
