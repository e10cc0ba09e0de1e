#include "fuzz/support/Replay.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <sstream>
#include <stdexcept>
#include <string>
#include <vector>

#include "tests/support/TemporaryFolder.h"

namespace quobrak::fuzz {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::ThrowsMessage;

std::vector<std::string> given;

int keep(const std::uint8_t* data, std::size_t size) {
  given.emplace_back(reinterpret_cast<const char*>(data), size);
  return 0;
}

class Replay : public ::testing::Test {
 protected:
  Replay() { given.clear(); }

  std::size_t replayed(const std::vector<std::filesystem::path>& paths) { return replay(keep, paths, progress_); }

  testing::TemporaryFolder folder_;
  std::ostringstream progress_;
};

TEST_F(Replay, GivesTheTargetAllFilesOfAFolderInTheirOrder) {
  folder_.write("seeds/b", "two");
  folder_.write("seeds/a", std::string("o\0ne", 4));
  folder_.write("seeds/c/d", "");
  EXPECT_EQ(replayed({folder_.path() / "seeds"}), 3);
  EXPECT_THAT(given, ElementsAre(std::string("o\0ne", 4), "two", ""));
}

TEST_F(Replay, GivesTheTargetFilesInTheOrderInWhichTheyAreNamed) {
  folder_.write("a", "one");
  folder_.write("b", "two");
  EXPECT_EQ(replayed({folder_.path() / "b", folder_.path() / "a"}), 2);
  EXPECT_THAT(given, ElementsAre("two", "one"));
}

TEST_F(Replay, NamesEachFileBeforeItsTurn) {
  folder_.write("a", "one");
  const auto fail = [](const std::uint8_t*, std::size_t) -> int { throw std::logic_error("broken"); };
  const std::vector<std::filesystem::path> paths{folder_.path() / "a"};
  EXPECT_THROW(replay(fail, paths, progress_), std::logic_error);
  EXPECT_EQ(progress_.str(), (folder_.path() / "a").string() + "\n");
}

TEST_F(Replay, AnEmptyFolderHoldsNoInput) {
  std::filesystem::create_directory(folder_.path() / "seeds");
  EXPECT_EQ(replayed({folder_.path() / "seeds"}), 0);
  EXPECT_EQ(replayed({}), 0);
  EXPECT_THAT(given, IsEmpty());
}

TEST_F(Replay, AFileThatIsMissingIsAnError) {
  const std::filesystem::path missing = folder_.path() / "missing";
  EXPECT_THAT([&] { replayed({missing}); }, ThrowsMessage<std::runtime_error>(missing.string() + " cannot be read"));
}

}  // namespace
}  // namespace quobrak::fuzz
