#include "host/run/ScriptCollection.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "host/Subcommand.h"
#include "quobrakUITests/Replacing.h"
#include "tests/support/TemporaryFolder.h"

namespace quobrak::host {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;
using testing::TemporaryFolder;

class CollectedScripts : public ::testing::Test {
 protected:
  std::string at(const std::string& path) const { return (folder.path() / path).string(); }

  /// "SUITE/NAME from FILE NAME".
  static std::vector<std::string> inWords(const ScriptCollection& collection) {
    std::vector<std::string> words;
    for (const CollectedScript& script : collection.scripts) {
      words.push_back(script.script.suite + "/" + script.script.name + " from " + script.fileName);
    }
    return words;
  }

  std::string errorOf(const std::vector<std::string>& paths, const std::optional<std::string>& suite) const {
    try {
      collectScripts(paths, suite);
    } catch (const UseError& error) {
      return error.what();
    }
    return "";
  }

  const TemporaryFolder folder;
};

TEST_F(CollectedScripts, BelongToTheSuiteOfTheirFolder) {
  folder.write("Shop/order.txt", "one\ntwo\n");
  folder.write("Shop/deep/search.script", "");
  const ScriptCollection collection =
      collectScripts({at("Shop/order.txt"), at("Shop/./deep/search.script")}, std::nullopt);
  EXPECT_THAT(inWords(collection), ElementsAre("Shop/order from order.txt", "deep/search from search.script"));
  EXPECT_THAT(collection.notices, IsEmpty());
  const CollectedScript& first = collection.scripts.front();
  EXPECT_EQ(first.bytes, "one\ntwo\n");
  EXPECT_EQ(first.script.source, at("Shop/order.txt"));
  EXPECT_EQ(first.script.lineCount, 2U);
  EXPECT_EQ(collection.scripts.back().script.lineCount, 0U);
}

TEST_F(CollectedScripts, BelongToTheSuiteThatIsTold) {
  folder.write("Shop/order.txt", "");
  folder.write("Bank/pay.txt", "");
  EXPECT_THAT(inWords(collectScripts({folder.path().string()}, "Mine")),
              ElementsAre("Mine/pay from pay.txt", "Mine/order from order.txt"));
}

TEST_F(CollectedScripts, HaveNamesOfTheirOwnWithinASuite) {
  folder.write("a/Shop/order.txt", "");
  folder.write("b/Shop/order.md", "");
  folder.write("c/Shop/order.txt", "");
  folder.write("c/Bank/order.txt", "");
  const ScriptCollection collection =
      collectScripts({at("a/Shop/order.txt"), at("b/Shop/order.md"), at("c")}, std::nullopt);
  EXPECT_THAT(inWords(collection), ElementsAre("Shop/order from order.txt", "Shop/order-2 from order-2.md",
                                               "Bank/order from order.txt", "Shop/order-3 from order-3.txt"));
  EXPECT_THAT(collection.notices, ElementsAre("The suite Shop has a script order already: the results of " +
                                                  at("b/Shop/order.md") + " are those of order-2",
                                              "The suite Shop has a script order already: the results of " +
                                                  at("c/Shop/order.txt") + " are those of order-3"));
}

TEST_F(CollectedScripts, TakeNoNameThatALaterOneWouldHave) {
  folder.write("a/S/order-2.txt", "");
  folder.write("b/S/order.txt", "");
  folder.write("c/S/order.txt", "");
  EXPECT_THAT(inWords(collectScripts({folder.path().string()}, std::nullopt)),
              ElementsAre("S/order-2 from order-2.txt", "S/order from order.txt", "S/order-3 from order-3.txt"));
}

TEST_F(CollectedScripts, HaveTheNextNumberThatIsFree) {
  for (const char* name : {"a/S/x.txt", "b/S/x.txt", "c/S/x-3.txt", "d/S/x.txt", "e/S/x.txt"}) {
    folder.write(name, "");
  }
  EXPECT_THAT(inWords(collectScripts({folder.path().string()}, std::nullopt)),
              ElementsAre("S/x from x.txt", "S/x-2 from x-2.txt", "S/x-3 from x-3.txt", "S/x-4 from x-4.txt",
                          "S/x-5 from x-5.txt"));
}

TEST_F(CollectedScripts, CountTheLinesOfAnyEncoding) {
  folder.write("S/a.txt", std::string_view("\xFF\xFE"
                                           "a\0\n\0b\0",
                                           8));
  folder.write("S/b.txt", "a\r\nb\xFF");
  const ScriptCollection collection = collectScripts({folder.path().string()}, std::nullopt);
  EXPECT_EQ(collection.scripts[0].script.lineCount, 2U);
  EXPECT_EQ(collection.scripts[1].script.lineCount, 3U);
}

TEST_F(CollectedScripts, HaveNamesThatFoldersCanHave) {
  for (const char* name : {"..txt", ".hidden", "...", ".txt"}) {
    folder.write(std::string("S/") + name, "");
    EXPECT_THAT(inWords(collectScripts({at(std::string("S/") + name)}, std::nullopt)),
                ElementsAre("S/" + std::string(name) + " from " + name));
  }
}

TEST_F(CollectedScripts, HaveASuiteThatAFolderCanHave) {
  folder.write("S/a.txt", "");
  for (const char* suite : {"", ".", "..", "a/b", "/"}) {
    EXPECT_EQ(errorOf({at("S/a.txt")}, suite),
              "--suite is \"" + std::string(suite) + "\", but must be the name of a folder, without a slash");
  }
}

TEST_F(CollectedScripts, AreFiles) {
  EXPECT_EQ(errorOf({"-"}, std::nullopt),
            "a script from standard input can be checked, but not run: its results would have no name");
  EXPECT_EQ(errorOf({at("S")}, std::nullopt), "there is no file or folder " + at("S"));
}

TEST(PlaceOfAScript, HasANumberOfItsOwn) {
  EXPECT_EQ(placeOfScript(0, 1, "order.txt"), "scripts/001/order.txt");
  EXPECT_EQ(placeOfScript(11, 1000, "order.txt"), "scripts/0012/order.txt");
}

// What the test process makes of the path that it is told.
TEST(PlaceOfAScript, IsToldSoThatTheTestProcessFindsIt) {
  for (const char* name : {"order.txt", "Documents.txt", "Documents", "DocumentsDocuments.txt", "MyDocuments.txt"}) {
    EXPECT_EQ(replacingOccurrences(tellablePlaceOfScript(0, 1, name), "/Documents", ""), placeOfScript(0, 1, name));
  }
}

TEST(Numbers, AreAsWideAsTheGreatest) {
  EXPECT_EQ(numbered(7, 30), "007");
  EXPECT_EQ(numbered(7, 1000), "0007");
  EXPECT_EQ(numbered(1000, 1000), "1000");
  EXPECT_EQ(numbered(12345, 1), "12345");
}

}  // namespace
}  // namespace quobrak::host
