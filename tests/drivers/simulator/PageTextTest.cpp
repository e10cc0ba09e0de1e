#include "drivers/simulator/PageText.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <string_view>

#include "drivers/simulator/PageSourceError.h"

namespace quobrak::simulator {
namespace {

using namespace std::string_literals;
using ::testing::ThrowsMessage;

TEST(PageText, IsReadInEachEncodingThatPagesAreSavedIn) {
  struct Row {
    const char* what;
    std::string bytes;
    std::string_view text;
  };
  const Row ROWS[] = {
      {"UTF-8", "<a b=\"é🙂\"/>", "<a b=\"é🙂\"/>"},
      {"UTF-8 with a mark", "\xEF\xBB\xBF<a/>", "<a/>"},
      {"UTF-16, little end first", "\xFF\xFE<\0\xE9\0\x3D\xD8\x42\xDE/\0>\0"s, "<é🙂/>"},
      {"UTF-16, big end first", "\xFE\xFF\0<\0\xE9\xD8\x3D\xDE\x42\0/\0>"s, "<é🙂/>"},
      {"UTF-16 without a mark, little end first", "<\0\xE9\0/\0>\0"s, "<é/>"},
      {"UTF-16 without a mark, big end first", "\0<\0a\0/\0>"s, "<a/>"},
      {"ISO-8859-1", "<?xml version='1.0' encoding='ISO-8859-1'?><\xE9\xFF/>",
       "<?xml version='1.0' encoding='ISO-8859-1'?><éÿ/>"},
      {"ISO-8859-1 by its other name", "<?xml version=\"1.0\" encoding=\"latin1\"?><\xE9/>",
       "<?xml version=\"1.0\" encoding=\"latin1\"?><é/>"},
      {"UTF-8 that calls itself something else", "<?xml version=\"1.0\" encoding=\"utf-16\"?><é/>",
       "<?xml version=\"1.0\" encoding=\"utf-16\"?><é/>"},
      {"nothing", "", ""},
      {"one byte", "<", "<"},
  };
  for (const auto& [what, bytes, text] : ROWS) {
    EXPECT_EQ(PageText(bytes).utf8(), text) << what;
  }
}

TEST(PageText, OtherEncodingsAreRefused) {
  struct Row {
    std::string bytes;
    std::string message;
  };
  const Row ROWS[] = {
      {"<é>\n <\xE9/>", "line 2, column 3: the page is not UTF-8; it must be saved in UTF-8"},
      {"<?xml version=\"1.0\" encoding=\"GBK\"?><a b=\"\xC4\xE3\xBA\xC3\"/>",
       R"(line 1, column 43: the page is not UTF-8 (its declaration calls it "GBK"); it must be saved in UTF-8)"},
      {"<?xml version=\"1.0\"?><\xE9/>", "line 1, column 23: the page is not UTF-8; it must be saved in UTF-8"},
      {"<a encoding=\"latin1\">\xE9</a>", "line 1, column 22: the page is not UTF-8; it must be saved in UTF-8"},
      {"<?xml encoding=\"\xE9", "line 1, column 17: the page is not UTF-8; it must be saved in UTF-8"},
      {"<?xml encoding=\"\xE9\"?>",
       "line 1, column 17: the page is not UTF-8 (its declaration calls it \"\uFFFD\"); it must be saved in UTF-8"},
      {"\xFF\xFE<\0\x3D\xD8"s, "line 1, column 1: the page is not UTF-8; it must be saved in UTF-8"},
  };
  for (const auto& [bytes, message] : ROWS) {
    EXPECT_THAT([&bytes = bytes] { PageText text(bytes); }, ThrowsMessage<PageSourceError>(message)) << bytes;
  }
}

TEST(PageText, TheReplyOfAServerIsToldFromAPage) {
  constexpr std::string_view REASON =
      ": this is JSON, and a page is XML; in a server's reply it is the text of \"value\", which is taken out with, "
      "for "
      "example, jq -r .value REPLY > PAGE";
  struct Row {
    std::string bytes;
    std::string place;
  };
  const Row ROWS[] = {
      {R"({"value":"<?xml version=\"1.0\"?>\n<a/>"})", "line 1, column 1"},
      {"\xEF\xBB\xBF\r\n\t {\"value\": null}", "line 2, column 3"},
      {R"(["<a/>"])", "line 1, column 1"},
      {R"("<a/>")", "line 1, column 1"},
      {"\xFF\xFE{\0}\0"s, "line 1, column 1"},
  };
  for (const auto& [bytes, place] : ROWS) {
    EXPECT_THAT([&bytes = bytes] { PageText text(bytes); }, ThrowsMessage<PageSourceError>(place + std::string(REASON)))
        << bytes;
  }
}

}  // namespace
}  // namespace quobrak::simulator
