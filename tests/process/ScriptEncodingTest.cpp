#include <gmock/gmock.h>

#include <string_view>

#include "tests/process/TestProcessRun.h"

namespace quobrak::testing {

namespace {

using ::testing::IsEmpty;
using namespace std::string_literals;

/// Runs one script, which is the second: the first one starts the application, so that reports are kept.
class ScriptEncoding : public ProcessTest {
 protected:
  ScriptEncoding() { addScript("S", "scripts/start.txt", "applicationStart,com.example.test"); }

  void expectSuccess(const std::string& script) {
    addScript("S", "scripts/script.txt", script);
    runsThrough();
    EXPECT_EQ(document("testsStatus.json"), statusFile({{"success", ""}, {"success", ""}}));
  }

  /// `line` and `command` are as JSON shows them.
  void expectUnknownCommand(const std::string& script, int number, const std::string& line,
                            const std::string& command) {
    addScript("S", "scripts/script.txt", script);
    runsThrough();
    EXPECT_EQ(document("testsStatus.json"),
              statusFile({{"success", ""},
                          {"failed", "Error on line " + line + " (line: " + std::to_string(number) +
                                         "). Cause: Function " + command + " is not implemented"}}));
  }
};

enum class ByteOrder { little, big };

/// Text of the Basic Multilingual Plane with a byte-order mark.
std::string utf16(std::u16string_view text, ByteOrder order) {
  std::string bytes;
  for (const char16_t unit : u"\uFEFF"s + std::u16string(text)) {
    const auto high = static_cast<char>(unit >> 8U);
    const auto low = static_cast<char>(unit & 0xFFU);
    bytes += order == ByteOrder::big ? high : low;
    bytes += order == ByteOrder::big ? low : high;
  }
  return bytes;
}

}  // namespace

TEST_F(ScriptEncoding, UTF8) {
  expectUnknownCommand("# größer\npause,1\nécran,日本", 3, "écran,日本", "écran");
}

TEST_F(ScriptEncoding, UTF8WithAByteOrderMark) {
  expectUnknownCommand("\xEF\xBB\xBF"s + "pause,1\nécran", 2, "écran", "écran");
}

TEST_F(ScriptEncoding, UTF16LittleEndian) {
  expectUnknownCommand(utf16(u"pause,1\n\u00E9cran\u65E5", ByteOrder::little), 2, "écran日", "écran日");
}

TEST_F(ScriptEncoding, UTF16BigEndian) {
  expectUnknownCommand(utf16(u"pause,1\n\u00E9cran\u65E5", ByteOrder::big), 2, "écran日", "écran日");
}

TEST_F(ScriptEncoding, Latin1IsNoTextThatCanBeTold) {
  addScript("S", "scripts/latin1.txt", "pause,1\n# caf\xE9\n");
  const ProcessEnd end = run();
  EXPECT_EQ(end.exitStatus, 1);
  EXPECT_EQ(end.err, caughtError("The file scripts/latin1.txt is missing in the document directory"));
  EXPECT_EQ(end.out, testCaseLines("failed", "0.000"));
  EXPECT_THAT(results(), IsEmpty());
}

TEST_F(ScriptEncoding, AnEmptyScriptSucceeds) {
  expectSuccess("");
}

TEST_F(ScriptEncoding, AScriptOfCommentsAndBlanksSucceeds) {
  expectSuccess("\n  \t\n# nonsense\n \t # ${UNSET}\n");
}

TEST_F(ScriptEncoding, ALongScriptIsCountedToItsLastLine) {
  const std::string line = "# forty characters of a comment, all told\n";
  constexpr int LINES = 250'000;
  std::string script;
  for (int i = 0; i < LINES; ++i) {
    script += line;
  }
  ASSERT_GE(script.size(), 10'000'000U);
  expectUnknownCommand(script + "nonsense", LINES + 1, "nonsense", "nonsense");
}

TEST_F(ScriptEncoding, ANulIsACharacterOfItsLine) {
  expectUnknownCommand("pause,1\nnon\0sense,1\npause,1"s, 2, "non\\u0000sense,1", "non\\u0000sense");
}

TEST_F(ScriptEncoding, CarriageReturnAndLineFeedAreTwoLineEnds) {
  expectUnknownCommand("pause,1\r\npause,1\r\nnonsense\r\n", 5, "nonsense", "nonsense");
}

TEST_F(ScriptEncoding, ACarriageReturnAloneIsALineEnd) {
  expectUnknownCommand("pause,1\rpause,1\rnonsense\r", 3, "nonsense", "nonsense");
}

TEST_F(ScriptEncoding, OtherLineSeparatorsOfUnicodeAreLineEnds) {
  expectUnknownCommand("pause,1\u2028pause,1\u0085# x\u2029\u000Bpause,1\u000Cnonsense", 6, "nonsense", "nonsense");
}

}  // namespace quobrak::testing
