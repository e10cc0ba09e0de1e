#include "platform/foundation/ConfinedFileManager.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <csignal>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>
#include <system_error>
#include <vector>

#include "platform/foundation/Paths.h"

namespace quobrak {
namespace {

namespace fs = std::filesystem;

using testing::ElementsAre;
using testing::IsEmpty;
using testing::ThrowsMessage;
using namespace std::string_literals;

class TemporaryFolder {
 public:
  TemporaryFolder() {
    std::string path = appendingPathComponent(testing::TempDir(), "quobrak-XXXXXX");
    if (mkdtemp(path.data()) == nullptr) {
      throw std::system_error(errno, std::generic_category(), path);
    }
    path_ = fs::canonical(path);
  }
  ~TemporaryFolder() { fs::remove_all(path_); }
  TemporaryFolder(const TemporaryFolder&) = delete;
  TemporaryFolder& operator=(const TemporaryFolder&) = delete;

  const fs::path& path() const { return path_; }

 private:
  fs::path path_;
};

class WorkingDirectory {
 public:
  explicit WorkingDirectory(const fs::path& path) : before_(fs::current_path()) { fs::current_path(path); }
  ~WorkingDirectory() { fs::current_path(before_); }
  WorkingDirectory(const WorkingDirectory&) = delete;
  WorkingDirectory& operator=(const WorkingDirectory&) = delete;

 private:
  fs::path before_;
};

class Umask {
 public:
  explicit Umask(mode_t mask) : before_(umask(mask)) {}
  ~Umask() { umask(before_); }
  Umask(const Umask&) = delete;
  Umask& operator=(const Umask&) = delete;

 private:
  mode_t before_;
};

// Stands in for a full disk: no file of this process grows beyond the size.
class LargestFile {
 public:
  explicit LargestFile(rlim_t size) : handler_(std::signal(SIGXFSZ, SIG_IGN)) {
    getrlimit(RLIMIT_FSIZE, &before_);
    const rlimit limit = {size, before_.rlim_max};
    setrlimit(RLIMIT_FSIZE, &limit);
  }
  ~LargestFile() {
    setrlimit(RLIMIT_FSIZE, &before_);
    std::signal(SIGXFSZ, handler_);
  }
  LargestFile(const LargestFile&) = delete;
  LargestFile& operator=(const LargestFile&) = delete;

 private:
  rlimit before_ = {};
  void (*handler_)(int);
};

void put(const fs::path& path, const std::string& bytes) {
  std::ofstream(path, std::ios::binary) << bytes;
}

std::string bytesIn(const fs::path& path) {
  std::ifstream file(path, std::ios::binary);
  return {std::istreambuf_iterator<char>(file), {}};
}

std::vector<std::string> namesIn(const fs::path& folder) {
  std::vector<std::string> names;
  for (const fs::directory_entry& entry : fs::directory_iterator(folder)) {
    names.push_back(entry.path().filename());
  }
  std::sort(names.begin(), names.end());
  return names;
}

unsigned modeOf(const fs::path& path) {
  return static_cast<unsigned>(fs::status(path).permissions());
}

auto raises(const std::string& message) {
  return ThrowsMessage<FileManagerError>(message);
}

// Beside the Documents directory lie folders that nothing may touch.
class ConfinedFileManagerTest : public testing::Test {
 protected:
  ConfinedFileManagerTest() {
    put(outside / "secret.txt", "secret");
    put(sibling / "secret.txt", "secret");
    fs::create_directories(root / "a/b");
    put(root / "a/x.txt", "inside");
  }

  std::string at(const std::string& path) const { return root.string() + "/" + path; }

  std::string read(const std::string& path) const { return manager.readText(at(path)); }
  void write(const std::string& text, const std::string& path) { manager.write(bytesOf(text), at(path)); }

  static fs::path folder(const fs::path& path) {
    fs::create_directory(path);
    return path;
  }

  const TemporaryFolder base;
  const fs::path root = folder(base.path() / "Documents");
  const fs::path sibling = folder(base.path() / "Documents2");
  const fs::path outside = folder(base.path() / "outside");
  ConfinedFileManager manager{root.string()};
};

TEST_F(ConfinedFileManagerTest, TheDocumentDirectoryIsAbsoluteAndFreeOfLinks) {
  fs::create_symlink("Documents", base.path() / "link");
  const WorkingDirectory directory(base.path());
  const ConfinedFileManager relative("./outside/../link/");
  EXPECT_EQ(relative.documentDirectory(), root.string());
  fs::current_path("/");
  EXPECT_EQ(relative.readText(at("a/x.txt")), "inside");
}

TEST_F(ConfinedFileManagerTest, ADocumentDirectoryThatIsNoneIsAnError) {
  put(base.path() / "file", "");
  EXPECT_THAT([&] { ConfinedFileManager((base.path() / "file").string()); },
              raises("The file “file” couldn’t be opened because there is no such file."));
  EXPECT_THAT([&] { ConfinedFileManager((base.path() / "absent").string()); },
              raises("The file “absent” couldn’t be opened because there is no such file."));
  EXPECT_THAT([&] { ConfinedFileManager(root.string() + "\0x"s); },
              raises("The file “Documents\uFFFDx” couldn’t be opened."));
  EXPECT_THAT([&] { ConfinedFileManager(""); }, raises("The file “” couldn’t be opened."));
}

TEST_F(ConfinedFileManagerTest, WhatLeavesTheDocumentDirectoryIsRefusedByEveryOperation) {
  fs::create_symlink("../outside", root / "out");
  fs::create_symlink(outside, root / "absolute");
  fs::create_symlink("out", root / "chain");
  fs::create_symlink("../outside/new", root / "dangling");
  fs::create_symlink("dangling", root / "danglingChain");
  fs::create_symlink("../outside/no/folder", root / "deepDangling");
  fs::create_symlink("../outside/loop", root / "toLoop");
  fs::create_symlink("loop", outside / "loop");
  fs::create_symlink("../..", root / "a/up");
  fs::create_symlink("a/b", root / "deep");
  const std::string OUTSIDE_PATHS[] = {
      outside.string() + "/secret.txt",
      sibling.string() + "/secret.txt",
      sibling.string(),
      base.path().string(),
      "/",
      at(".."),
      at("../outside/secret.txt"),
      at("../outside/new"),
      at("../Documents2/secret.txt"),
      at("a/../../outside/secret.txt"),
      at("a/./..//../outside/secret.txt"),
      at("missing/../../outside/secret.txt"),
      at("missing/../../outside/new"),
      at("out/secret.txt"),
      at("out/new"),
      at("out/new/deeper"),
      at("out/../x"),
      at("out/../outside/secret.txt"),
      at("out/secret.txt/x"),
      at("out/missing/../x"),
      at("absolute/secret.txt"),
      at("absolute/new"),
      at("chain/secret.txt"),
      at("chain/new"),
      at("dangling/x"),
      at("danglingChain/x"),
      at("deepDangling/x"),
      at("toLoop/x"),
      at("a/up/outside/secret.txt"),
      at("a/up/x"),
      at("deep/../../a/x.txt"),
  };
  for (const std::string& path : OUTSIDE_PATHS) {
    const std::string name = lastPathComponent(path);
    const std::string saving = "You don’t have permission to save the file “" + name + "” in the folder “" +
                               lastPathComponent(deletingLastPathComponent(path)) + "”.";
    EXPECT_THAT([&] { manager.readText(path); },
                raises("The file “" + name + "” couldn’t be opened because you don’t have permission to view it."))
        << path;
    EXPECT_THAT([&] { manager.write(bytesOf("text"), path); }, raises(saving)) << path;
    // Names the folder on the way that leads outside, which is not always the last one.
    EXPECT_THAT(
        [&] { manager.createDirectory(path); },
        testing::ThrowsMessage<FileManagerError>(testing::StartsWith("You don’t have permission to save the file “")))
        << path;
    EXPECT_THAT([&] { manager.removeItem(path); },
                raises("“" + name + "” couldn’t be removed because you don’t have permission to access it."))
        << path;
  }
  EXPECT_THAT(namesIn(base.path()), ElementsAre("Documents", "Documents2", "outside"));
  EXPECT_THAT(namesIn(outside), ElementsAre("loop", "secret.txt"));
  EXPECT_THAT(namesIn(sibling), ElementsAre("secret.txt"));
  EXPECT_EQ(bytesIn(outside / "secret.txt"), "secret");
}

TEST_F(ConfinedFileManagerTest, ALinkThatLeadsOutsideIsNeitherReadNorWrittenThrough) {
  fs::create_symlink("../outside/secret.txt", root / "link");
  fs::create_symlink(outside / "new", root / "dangling");
  EXPECT_THAT([&] { read("link"); },
              raises("The file “link” couldn’t be opened because you don’t have permission to view it."));
  EXPECT_THAT([&] { write("text", "link"); },
              raises("You don’t have permission to save the file “link” in the folder “Documents”."));
  EXPECT_THAT([&] { write("text", "dangling"); },
              raises("You don’t have permission to save the file “dangling” in the folder “Documents”."));
  EXPECT_THAT([&] { manager.createDirectory(at("dangling")); },
              raises("You don’t have permission to save the file “dangling” in the folder “Documents”."));
  EXPECT_EQ(bytesIn(outside / "secret.txt"), "secret");
  EXPECT_THAT(namesIn(outside), ElementsAre("secret.txt"));
}

TEST_F(ConfinedFileManagerTest, PathsThatStayInsidePass) {
  fs::create_symlink("a/b", root / "link");
  fs::create_symlink(root / "a", root / "absolute");
  fs::create_symlink("link", root / "chain");
  fs::create_symlink("..", root / "up");
  const std::string INSIDE_PATHS[] = {
      "a/x.txt",       "./a//x.txt",     "a/b/../x.txt",         "a/../../Documents/a/x.txt",   "absolute/x.txt",
      "link/../x.txt", "chain/../x.txt", "up/Documents/a/x.txt", "up/Documents/chain/../x.txt",
  };
  for (const std::string& path : INSIDE_PATHS) {
    EXPECT_EQ(read(path), "inside") << path;
  }
}

TEST_F(ConfinedFileManagerTest, ARelativePathStartsAtTheWorkingDirectory) {
  {
    const WorkingDirectory inside(root / "a");
    EXPECT_EQ(manager.readText("x.txt"), "inside");
    EXPECT_EQ(manager.readText("../a/x.txt"), "inside");
    manager.write(bytesOf("new"), "y.txt");
    EXPECT_EQ(bytesIn(root / "a/y.txt"), "new");
  }
  const WorkingDirectory elsewhere(outside);
  EXPECT_THAT([&] { manager.readText("secret.txt"); },
              raises("The file “secret.txt” couldn’t be opened because you don’t have permission to view it."));
  EXPECT_THAT([&] { manager.write(bytesOf("x"), "new.txt"); },
              raises("You don’t have permission to save the file “new.txt” in the folder “outside”."));
}

TEST_F(ConfinedFileManagerTest, ADocumentDirectoryAtTheTopHoldsEverything) {
  ConfinedFileManager everywhere("/");
  EXPECT_EQ(everywhere.documentDirectory(), "/");
  EXPECT_EQ(everywhere.readText(outside.string() + "/secret.txt"), "secret");
  everywhere.createDirectory(outside.string() + "/new/newer");
  EXPECT_TRUE(fs::is_directory(outside / "new/newer"));
}

TEST_F(ConfinedFileManagerTest, EmptyPathsAndPathsWithANulAreRefused) {
  const std::string NUL_PATH = at("a/x.txt\0y"s);
  EXPECT_THAT([&] { manager.readText(NUL_PATH); }, raises("The file “x.txt\uFFFDy” couldn’t be opened."));
  EXPECT_THAT([&] { manager.write(bytesOf("x"), NUL_PATH); }, raises("The file name “x.txt\uFFFDy” is invalid."));
  EXPECT_THAT([&] { manager.createDirectory(NUL_PATH); }, raises("The file name “x.txt\uFFFDy” is invalid."));
  EXPECT_THAT([&] { manager.removeItem(NUL_PATH); }, raises("“x.txt\uFFFDy” couldn’t be removed."));
  EXPECT_FALSE(manager.fileExists(NUL_PATH));

  const WorkingDirectory inside(root / "a");
  EXPECT_THAT([&] { manager.readText(""); }, raises("The file “” couldn’t be opened."));
  EXPECT_THAT([&] { manager.write(bytesOf("x"), ""); }, raises("The file name “” is invalid."));
  EXPECT_THAT([&] { manager.createDirectory(""); }, raises("The file name “” is invalid."));
  EXPECT_THAT([&] { manager.removeItem(""); }, raises("“” couldn’t be removed."));
  EXPECT_FALSE(manager.fileExists(""));
  EXPECT_EQ(bytesIn(root / "a/x.txt"), "inside");
}

TEST_F(ConfinedFileManagerTest, FortyLinksAreFollowedButNoMore) {
  fs::create_symlink("a/x.txt", root / "link1");
  for (int number = 2; number <= 41; ++number) {
    fs::create_symlink("link" + std::to_string(number - 1), root / ("link" + std::to_string(number)));
  }
  EXPECT_EQ(read("link40"), "inside");
  EXPECT_THAT([&] { read("link41"); }, raises("The file “link41” couldn’t be opened."));
}

TEST_F(ConfinedFileManagerTest, FilesExistAnywhere) {
  fs::create_symlink("nowhere", root / "dangling");
  fs::create_symlink("../outside", root / "out");
  for (const std::string& path : {at("a"), at("a/x.txt"), root.string(), outside.string() + "/secret.txt",
                                  at("out/secret.txt"), at("../outside/secret.txt"), "/"s}) {
    EXPECT_TRUE(manager.fileExists(path)) << path;
  }
  for (const std::string& path : {at("b"), at("a/x.txt/y"), at("dangling"), outside.string() + "/other.txt"}) {
    EXPECT_FALSE(manager.fileExists(path)) << path;
  }
  const WorkingDirectory elsewhere(outside);
  EXPECT_TRUE(manager.fileExists("secret.txt"));
}

TEST_F(ConfinedFileManagerTest, RemovesAFile) {
  manager.removeItem(at("a/x.txt"));
  EXPECT_THAT(namesIn(root / "a"), ElementsAre("b"));
}

TEST_F(ConfinedFileManagerTest, RemovesAFolderWithEverythingInItButNotWhatLinksInItLeadTo) {
  fs::create_symlink("../../../outside", root / "a/b/out");
  manager.removeItem(at("a/"));
  EXPECT_THAT(namesIn(root), IsEmpty());
  EXPECT_EQ(bytesIn(outside / "secret.txt"), "secret");
}

TEST_F(ConfinedFileManagerTest, RemovesALinkItself) {
  fs::create_symlink("a", root / "inside");
  fs::create_symlink("../outside", root / "out");
  fs::create_symlink("nowhere", root / "dangling");
  fs::create_symlink("loop", root / "loop");
  fs::create_symlink(".", root / "self");
  for (const std::string name : {"inside", "out/", "dangling", "loop", "self"}) {
    manager.removeItem(at(name));
  }
  EXPECT_THAT(namesIn(root), ElementsAre("a"));
  EXPECT_EQ(bytesIn(root / "a/x.txt"), "inside");
  EXPECT_EQ(bytesIn(outside / "secret.txt"), "secret");
}

TEST_F(ConfinedFileManagerTest, RemovesThroughALinkOnTheWay) {
  fs::create_symlink("a", root / "link");
  manager.removeItem(at("link/x.txt"));
  EXPECT_THAT(namesIn(root / "a"), ElementsAre("b"));
}

TEST_F(ConfinedFileManagerTest, TheDocumentDirectoryIsNotRemoved) {
  fs::create_symlink(".", root / "self");
  for (const std::string& path : {root.string(), at(""), at("a/..")}) {
    EXPECT_THAT([&] { manager.removeItem(path); },
                raises("“" + lastPathComponent(path) +
                       "” couldn’t be removed because you don’t have permission to access it."));
  }
  EXPECT_THAT([&] { manager.removeItem(at("self/.")); },
              raises("“.” couldn’t be removed because you don’t have permission to access it."));
  EXPECT_EQ(bytesIn(root / "a/x.txt"), "inside");
}

TEST_F(ConfinedFileManagerTest, RemovingWhatIsNotThereIsAnError) {
  for (const std::string& path : {at("absent"), at("absent/absent"), at("a/x.txt/absent"), at("b/../absent")}) {
    EXPECT_THAT([&] { manager.removeItem(path); }, raises("“absent” couldn’t be removed because it doesn’t exist."));
  }
}

TEST_F(ConfinedFileManagerTest, CreatesADirectoryAndThoseAboveIt) {
  manager.createDirectory(at("new/newer/newest"));
  EXPECT_TRUE(fs::is_directory(root / "new/newer/newest"));
  manager.createDirectory(at("new/other/"));
  EXPECT_TRUE(fs::is_directory(root / "new/other"));
}

TEST_F(ConfinedFileManagerTest, ADirectoryThatExistsAlreadyIsNoError) {
  fs::create_symlink("a", root / "link");
  manager.createDirectory(root.string());
  manager.createDirectory(at("a/b"));
  manager.createDirectory(at("link"));
  manager.createDirectory(at("link/c"));
  EXPECT_THAT(namesIn(root / "a"), ElementsAre("b", "c", "x.txt"));
}

TEST_F(ConfinedFileManagerTest, AFileInTheWayOfADirectoryIsAnError) {
  for (const std::string& path : {at("a/x.txt"), at("a/x.txt/new"), at("a/x.txt/new/newer")}) {
    EXPECT_THAT([&] { manager.createDirectory(path); },
                raises("The file “x.txt” couldn’t be saved in the folder “a” because a file with the same name already "
                       "exists."));
  }
}

TEST_F(ConfinedFileManagerTest, TheDirectoryThatFailedIsNamed) {
  const std::string tooLong(300, 'n');
  EXPECT_THAT([&] { manager.createDirectory(at("new/" + tooLong + "/newer")); },
              raises("The file name “" + tooLong + "” is invalid."));
}

TEST_F(ConfinedFileManagerTest, TheDirectoryThatLeadsOutsideIsNamed) {
  fs::create_symlink("../outside", root / "out");
  EXPECT_THAT([&] { manager.createDirectory(at("out/new/deeper")); },
              raises("You don’t have permission to save the file “out” in the folder “Documents”."));
}

TEST_F(ConfinedFileManagerTest, DotsBehindAMissingDirectoryCreateItToo) {
  manager.createDirectory(at("missing/../new"));
  EXPECT_TRUE(fs::is_directory(root / "missing"));
  EXPECT_TRUE(fs::is_directory(root / "new"));
}

TEST_F(ConfinedFileManagerTest, ReadsTextInTheEncodingThatItsMarkTells) {
  put(root / "plain", "Grüße 🙂\r\n");
  put(root / "marked", "\xEF\xBB\xBFGrüße");
  put(root / "utf16", "\xFF\xFE\xFC\0"s);
  put(root / "empty", "");
  EXPECT_EQ(read("plain"), "Grüße 🙂\r\n");
  EXPECT_EQ(read("marked"), "Grüße");
  EXPECT_EQ(read("utf16"), "ü");
  EXPECT_EQ(read("empty"), "");
}

TEST_F(ConfinedFileManagerTest, ReadsALargeFileWhole) {
  std::string text;
  while (text.size() < 10'000'000) {
    text += std::to_string(text.size()) + " Grüße\n";
  }
  put(root / "large", text);
  EXPECT_TRUE(read("large") == text);
}

TEST_F(ConfinedFileManagerTest, ReadsAFileThatTellsNoSize) {
  const std::string path = "/proc/version";
  ASSERT_EQ(fs::file_size(path), 0U);
  EXPECT_EQ(ConfinedFileManager("/").readText(path), bytesIn(path));
}

TEST_F(ConfinedFileManagerTest, AFileThatIsNotThereIsNotRead) {
  fs::create_symlink("absent", root / "dangling");
  EXPECT_THAT([&] { read("absent"); }, raises("The file “absent” couldn’t be opened because there is no such file."));
  EXPECT_THAT([&] { read("dangling"); },
              raises("The file “dangling” couldn’t be opened because there is no such file."));
  for (const std::string path : {"no/x.txt", "a/x.txt/x.txt", "a/x.txt/../x.txt", "no/../a/x.txt"}) {
    EXPECT_THAT([&] { read(path); }, raises("The file “x.txt” couldn’t be opened because there is no such file."))
        << path;
  }
}

TEST_F(ConfinedFileManagerTest, WhatIsNoTextIsNotRead) {
  put(root / "image", "\xC3\x28");
  EXPECT_THAT([&] { read("image"); },
              raises("The file “image” couldn’t be opened because the text encoding of its contents can’t be "
                     "determined."));
}

TEST_F(ConfinedFileManagerTest, WhatIsNoRegularFileIsNotRead) {
  ASSERT_EQ(mkfifo(at("fifo").c_str(), 0600), 0);
  fs::create_symlink("loop", root / "loop");
  EXPECT_THAT([&] { read("a"); }, raises("The file “a” couldn’t be opened."));
  EXPECT_THAT([&] { manager.readText(root.string()); }, raises("The file “Documents” couldn’t be opened."));
  EXPECT_THAT([&] { read("fifo"); }, raises("The file “fifo” couldn’t be opened."));
  EXPECT_THAT([&] { read("loop"); }, raises("The file “loop” couldn’t be opened."));
  EXPECT_THAT([&] { ConfinedFileManager("/").readText("/dev/null"); }, raises("The file “null” couldn’t be opened."));
}

TEST_F(ConfinedFileManagerTest, WritesAFileAndReplacesWhatItHeld) {
  write("one and more\0"s, "new.txt");
  EXPECT_EQ(bytesIn(root / "new.txt"), "one and more\0"s);
  write("two", "new.txt");
  EXPECT_EQ(bytesIn(root / "new.txt"), "two");
  write("", "new.txt");
  EXPECT_EQ(bytesIn(root / "new.txt"), "");
  EXPECT_THAT(namesIn(root), ElementsAre("a", "new.txt"));
}

TEST_F(ConfinedFileManagerTest, ANewFileIsForAllToReadLessTheUmask) {
  {
    const Umask mask(0022);
    write("text", "open");
  }
  {
    const Umask mask(0077);
    write("text", "closed");
  }
  EXPECT_EQ(modeOf(root / "open"), 0644U);
  EXPECT_EQ(modeOf(root / "closed"), 0600U);
}

TEST_F(ConfinedFileManagerTest, ANewFileMayBeForAGroupToWriteWhereTheUmaskLetsIt) {
  const Umask mask(0002);
  write("text", "shared");
  EXPECT_EQ(modeOf(root / "shared"), 0664U);
}

/// Ends a child process with 0 if `holds`. Permissions mean nothing to root, so a child that is root becomes nobody
/// first, who owns the folder by then.
template <class Condition>
void exitAsNobody(const fs::path& folder, Condition holds) {
  constexpr uid_t NOBODY = 65534;
  if (geteuid() == 0) {
    fs::permissions(folder.parent_path(), fs::perms(0755));
    for (const auto& entry : fs::recursive_directory_iterator(folder)) {
      if (chown(entry.path().c_str(), NOBODY, NOBODY) != 0) {
        _exit(2);
      }
    }
    if (chown(folder.c_str(), NOBODY, NOBODY) != 0 || setuid(NOBODY) != 0) {
      _exit(2);
    }
  }
  _exit(holds() ? 0 : 1);
}

TEST_F(ConfinedFileManagerTest, AFileThatMayNotBeWrittenIsNotReplaced) {
  fs::permissions(root / "a/x.txt", fs::perms(0444));
  EXPECT_EXIT(exitAsNobody(root,
                           [this] {
                             try {
                               write("new", "a/x.txt");
                             } catch (const FileManagerError& error) {
                               return error.what() ==
                                          "You don’t have permission to save the file “x.txt” in the folder “a”."s &&
                                      read("a/x.txt") == "inside";
                             }
                             return false;
                           }),
              testing::ExitedWithCode(0), "");
}

TEST_F(ConfinedFileManagerTest, AFileIsReplacedInAFolderThatMayNotBeWritten) {
  fs::permissions(root / "a", fs::perms(0555));
  EXPECT_EXIT(
      exitAsNobody(root,
                   [this] {
                     bool isReplaced = true;
                     for (const std::string& content : {"new"s, "longer than before"s, "as long as before."s, ""s}) {
                       write(content, "a/x.txt");
                       isReplaced = isReplaced && read("a/x.txt") == content;
                     }
                     return isReplaced;
                   }),
      testing::ExitedWithCode(0), "");
  fs::permissions(root / "a", fs::perms(0755));
}

TEST_F(ConfinedFileManagerTest, AFileThatCannotGrowHoldsWhatItHeld) {
  for (const unsigned folderMode : {0755U, 0555U}) {
    fs::permissions(root / "a", fs::perms(folderMode));
    EXPECT_EXIT(exitAsNobody(root,
                             [this] {
                               const std::string before = read("a/x.txt");
                               const LargestFile limit(before.size() + 2);
                               try {
                                 write(before + " and more", "a/x.txt");
                               } catch (const FileManagerError& error) {
                                 return error.what() ==
                                            "You can’t save the file “x.txt” because the volume is out of space."s &&
                                        read("a/x.txt") == before;
                               }
                               return false;
                             }),
                testing::ExitedWithCode(0), "");
    EXPECT_THAT(namesIn(root / "a"), ElementsAre("b", "x.txt"));
  }
  fs::permissions(root / "a", fs::perms(0755));
}

TEST_F(ConfinedFileManagerTest, TheDocumentsDirectoryIsMadeAgainWhereItHasGone) {
  fs::remove_all(root);
  manager.createDirectory(at("measures"));
  EXPECT_TRUE(fs::is_directory(root / "measures"));
}

TEST_F(ConfinedFileManagerTest, AFileThatIsReplacedKeepsItsMode) {
  const Umask mask(0077);
  for (const unsigned mode : {0600U, 0666U, 0755U}) {
    fs::permissions(root / "a/x.txt", fs::perms(mode));
    write("text", "a/x.txt");
    EXPECT_EQ(modeOf(root / "a/x.txt"), mode);
  }
}

TEST_F(ConfinedFileManagerTest, WritesThroughALinkThatStaysInside) {
  fs::create_symlink("a/x.txt", root / "link");
  fs::create_symlink("a/b/new.txt", root / "dangling");
  write("changed", "link");
  write("created", "dangling");
  EXPECT_TRUE(fs::is_symlink(root / "link"));
  EXPECT_TRUE(fs::is_symlink(root / "dangling"));
  EXPECT_EQ(bytesIn(root / "a/x.txt"), "changed");
  EXPECT_EQ(bytesIn(root / "a/b/new.txt"), "created");
}

TEST_F(ConfinedFileManagerTest, OnlyFilesAreWrittenTo) {
  ASSERT_EQ(mkfifo(at("fifo").c_str(), 0600), 0);
  EXPECT_THAT([&] { write("text", "a"); }, raises("The file “a” couldn’t be saved in the folder “Documents”."));
  EXPECT_THAT([&] { write("text", "fifo"); }, raises("The file “fifo” couldn’t be saved in the folder “Documents”."));
  EXPECT_THAT(
      [&] { manager.write(bytesOf("text"), root.string()); },
      raises("The file “Documents” couldn’t be saved in the folder “" + base.path().filename().string() + "”."));
  EXPECT_TRUE(fs::is_fifo(root / "fifo"));
  EXPECT_THAT(namesIn(root), ElementsAre("a", "fifo"));
}

TEST_F(ConfinedFileManagerTest, AFolderThatIsMissingIsNotWrittenInto) {
  EXPECT_THAT([&] { write("text", "no/new.txt"); }, raises("The folder “no” doesn’t exist."));
  EXPECT_THAT([&] { write("text", "a/x.txt/new.txt"); }, raises("The folder “x.txt” doesn’t exist."));
  fs::create_symlink("no/../../outside/new.txt", root / "trick");
  EXPECT_THAT([&] { write("text", "trick"); }, raises("The folder “Documents” doesn’t exist."));
  EXPECT_THAT(namesIn(outside), ElementsAre("secret.txt"));
}

TEST_F(ConfinedFileManagerTest, ANameThatIsTooLongIsInvalid) {
  const std::string name(300, 'n');
  EXPECT_THAT([&] { write("text", name); }, raises("The file name “" + name + "” is invalid."));
  EXPECT_THAT(namesIn(root), ElementsAre("a"));
}

TEST_F(ConfinedFileManagerTest, AFullDiskLeavesWhatTheFileHeld) {
  const std::string large(100'000, 'x');
  {
    // So much fits at once, and the rest does not.
    const LargestFile limit(60'000);
    EXPECT_THAT([&] { write(large, "a/x.txt"); },
                raises("You can’t save the file “x.txt” because the volume is out of space."));
  }
  EXPECT_EQ(bytesIn(root / "a/x.txt"), "inside");
  EXPECT_THAT(namesIn(root / "a"), ElementsAre("b", "x.txt"));
}

}  // namespace
}  // namespace quobrak
