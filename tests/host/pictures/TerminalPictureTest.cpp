#include "host/pictures/TerminalPicture.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <pugixml.hpp>

namespace quobrak::host {
namespace {

using ::testing::ElementsAre;

/// Where a text stands and what it looks like.
std::string told(const pugi::xml_node& text) {
  return std::string(text.attribute("x").value()) + "," + text.attribute("y").value() + " " +
         text.attribute("textLength").value() + " [" + text.attribute("class").value() + "] " + text.text().get();
}

class TerminalPicture : public ::testing::Test {
 protected:
  /// The picture of these, read again.
  pugi::xml_node drawn(const std::vector<Exchange>& exchanges) {
    EXPECT_TRUE(document_.load_string(terminalPicture("A <title>", exchanges).c_str(), pugi::parse_full));
    return document_.child("svg");
  }

  std::vector<std::string> texts(const std::vector<Exchange>& exchanges) {
    std::vector<std::string> all;
    for (const pugi::xml_node& text : drawn(exchanges).children("text")) {
      all.push_back(told(text));
    }
    return all;
  }

 private:
  pugi::xml_document document_;
};

TEST_F(TerminalPicture, ShowsWhatWasTypedAndPrintedAtItsColumns) {
  EXPECT_THAT(texts({{.typed = "quobrak <x>", .printed = "a  \x1b[1;31mb & c\x1b[0m\n\nd\n"}}),
              ElementsAre("16,31 8.4 [dim] $", "32.8,31 92.4 [bold] quobrak <x>", "16,51 8.4 [] a",
                          "41.2,51 42 [bold red] b & c", "16,91 8.4 [] d"));
}

TEST_F(TerminalPicture, LeavesALineBetweenWhatWasTyped) {
  EXPECT_THAT(texts({{.typed = "a", .printed = "1\n"}, {.typed = "b", .printed = ""}}),
              ElementsAre("16,31 8.4 [dim] $", "32.8,31 8.4 [bold] a", "16,51 8.4 [] 1", "16,91 8.4 [dim] $",
                          "32.8,91 8.4 [bold] b"));
}

TEST_F(TerminalPicture, KnowsAllStyles) {
  EXPECT_THAT(texts({{.typed = "a", .printed = "\x1b[32m1\x1b[33m2\x1b[34m3\x1b[2m4\n"}}),
              ElementsAre("16,31 8.4 [dim] $", "32.8,31 8.4 [bold] a", "16,51 8.4 [green] 1", "24.4,51 8.4 [yellow] 2",
                          "32.8,51 8.4 [blue] 3", "41.2,51 8.4 [dim] 4"));
}

TEST_F(TerminalPicture, IsAsLargeAsItsTextAndNeverNarrow) {
  EXPECT_STREQ(drawn({{.typed = "a", .printed = "1\n"}}).attribute("viewBox").value(), "0 0 704 72");
  EXPECT_STREQ(drawn({{.typed = "a", .printed = std::string(90, 'x')}}).attribute("viewBox").value(), "0 0 788 72");
}

TEST_F(TerminalPicture, HasATitle) {
  const pugi::xml_node svg = drawn({{.typed = "a", .printed = ""}});
  EXPECT_STREQ(svg.attribute("role").value(), "img");
  EXPECT_STREQ(svg.child_value("title"), "A <title>");
}

}  // namespace
}  // namespace quobrak::host
