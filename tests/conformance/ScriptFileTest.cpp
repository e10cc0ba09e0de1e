#include "tests/conformance/ScriptFile.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace quobrak::conformance {
namespace {

using ::testing::ElementsAre;
using ::testing::Pair;
using ::testing::ThrowsMessage;

const std::string BASIC = "# expect status: success\n# expect touched: a\n";

std::string withStatus(const std::string& status, const std::string& script) {
  return "# expect status: " + status + "\n# expect touched: nothing\n" + script;
}

TEST(ScriptFile, SaysWhatItIsAndWhatIsExpectedOfIt) {
  const ScriptFile file = readScriptFile(
      "tap/save",
      "# Taps.\n# phone: built-in\n# value a.one: 1 + 1\n# value two:\n#drivers: wda, xctest (the others cannot)\n"
      "  #  expect status: success  \n# expect touched: a, b\n"
      "# expect screen: label == \"A\"\n# expect screen: not label == \"B\"\n"
      "\n start,x\nend\n");
  EXPECT_EQ(file.name, "tap/save");
  EXPECT_EQ(file.phone, "built-in");
  EXPECT_THAT(file.values, ElementsAre(Pair("a.one", "1 + 1"), Pair("two", "")));
  EXPECT_THAT(file.drivers, ElementsAre("wda", "xctest"));
  std::vector<std::string> expected;
  for (const Expectation& expectation : file.expectations) {
    expected.push_back(std::to_string(expectation.line) + " " + expectation.key + ": " + expectation.text);
  }
  EXPECT_THAT(expected, ElementsAre("6 status: success", "7 touched: a, b", "8 screen: label == \"A\"",
                                    "9 screen: not label == \"B\""));
  std::vector<std::string> commands;
  for (const CommandLine& command : file.commands) {
    commands.push_back(std::to_string(command.line) + " " + command.command);
  }
  EXPECT_THAT(commands, ElementsAre("11 start", "12 end"));
}

TEST(ScriptFile, RunsOnThePhoneOfTheScriptsAndForEveryDriverUnlessItSaysOtherwise) {
  const ScriptFile file = readScriptFile("s", BASIC);
  EXPECT_EQ(file.phone, "phone");
  EXPECT_TRUE(file.values.empty());
  EXPECT_TRUE(file.isFor("simulator"));
  EXPECT_TRUE(file.isFor("xctest"));
  const ScriptFile limited = readScriptFile("s", BASIC + "# drivers: simulator, wda (because)\n");
  EXPECT_TRUE(limited.isFor("wda"));
  EXPECT_FALSE(limited.isFor("appium"));
}

TEST(ScriptFile, IsRefusedWhereItIsNotClearWhatIsExpected) {
  const std::string keys = "status, touched, screen, elapsed, volume, steps, pictures";
  const std::string malformed =
      R"-(" is none of "expect KEY: TEXT", "phone: FOLDER", "value NAME: TEXT" and "drivers: A, B (REASON)")-";
  struct Row {
    std::string text;
    std::string message;
  };
  for (const auto& [text, message] : {
           Row{"",
               "s: no status is expected; add \"# expect status: success\", \"failed: MESSAGE\" or \"fatal: "
               "MESSAGE\""},
           Row{"clickByText,a\n# expect touched: a",
               "s: no status is expected; add \"# expect status: success\", \"failed: MESSAGE\" or \"fatal: "
               "MESSAGE\""},
           Row{"# expect status: success",
               "s: it is not said what is touched; add \"# expect touched: A, B\" or \"nothing\""},
           Row{BASIC + "# expect colour: red", "s: line 3: \"colour\" cannot be expected; what can is " + keys},
           Row{BASIC + "# expect status: success", "s: line 3: \"status\" is expected a second time"},
           Row{"# expect status: fatal: stop\n# expect touched: a",
               "s: beside a fatal stop nothing else can be expected"},
           Row{BASIC + "# expect elapsed:", "s: line 3: \"expect elapsed:" + malformed},
           Row{BASIC + "# expects volume: 5", "s: line 3: \"expects volume: 5" + malformed},
           Row{BASIC + "# Expect volume: 5", "s: line 3: \"Expect volume: 5" + malformed},
           Row{BASIC + "# phone: of mine", "s: line 3: \"phone: of mine" + malformed},
           Row{BASIC + "# value a b: 1", "s: line 3: \"value a b: 1" + malformed},
           Row{BASIC + "# value: a = 1", "s: line 3: \"value: a = 1" + malformed},
           Row{BASIC + "# value a: 1\n# value a: 1", "s: line 4: the value \"a\" is given a second time"},
           Row{BASIC + "# drivers: wda", "s: line 3: \"drivers: wda" + malformed},
           Row{BASIC + "# driver: wda (because)", "s: line 3: \"driver: wda (because)" + malformed},
           Row{BASIC + "# drivers: wda, android (because)",
               "s: line 3: \"android\" is no driver; the drivers are simulator, wda, appium, xctest"},
           Row{BASIC + "# expect screen: label ==",
               "s: line 3: the predicate cannot be used: column 9: expected a key path, a text, TRUE, FALSE or %@, "
               "found "
               "the end in the predicate format: label =="},
       }) {
    EXPECT_THAT([&text = text] { readScriptFile("s", text); }, ThrowsMessage<ScriptFileError>(message)) << text;
  }
}

TEST(ScriptFile, APredicateThatCouldNeverBeAskedIsRefused) {
  for (const char* screen : {"colour == \"red\"", "label MATCHES \"(\"", "0 of", "not", "not 3 of label == \"a\""}) {
    EXPECT_THROW(readScriptFile("s", BASIC + "# expect screen: " + screen), ScriptFileError) << screen;
  }
}

TEST(ScriptFile, AScreenHasSomeOrNoneOrSoManyElementsThatFulfilAPredicate) {
  struct Row {
    std::string text;
    std::string format;
    std::optional<std::size_t> count;
  };
  const std::string format = R"(label == "3 of a")";
  for (const auto& [text, read, count] : {Row{format, format, std::nullopt}, Row{"not " + format, format, 0},
                                          Row{"0 of " + format, format, 0}, Row{"12 of " + format, format, 12}}) {
    const ScreenExpectation expectation = readScreenExpectation(text);
    EXPECT_EQ(expectation.predicate.predicateFormat(), NSPredicate(read).predicateFormat()) << text;
    EXPECT_EQ(expectation.count, count) << text;
  }
}

TEST(ScriptFile, OfAFatalStopTheMessageIsKnown) {
  EXPECT_EQ(readScriptFile("s", "# expect status: fatal: It is over").fatalStop(), "It is over");
  EXPECT_EQ(readScriptFile("s", BASIC).fatalStop(), std::nullopt);
  EXPECT_EQ(readScriptFile("s", withStatus("failed: fatal: no", "")).fatalStop(), std::nullopt);
}

TEST(ScriptFile, TheCommandThatFailsIsOnTheLineThatTheStatusNames) {
  const std::string commands = "one\ntwo\nthree\n";
  struct Row {
    std::string status;
    std::optional<std::string> command;
  };
  for (const auto& [status, command] :
       {Row{"success", std::nullopt}, Row{"failed: Error on line two (line: 4). Cause: why (line 5: x)", "two"},
        Row{"failed: An unknown error occured", "three"}, Row{"failed: Error on line x (line: 9). Cause: why", {}}}) {
    EXPECT_EQ(readScriptFile("s", withStatus(status, commands)).failingCommand(), command) << status;
  }
  EXPECT_EQ(readScriptFile("s", "# expect status: fatal: It is over (line 3: two)\n" + commands).failingCommand(),
            "two");
  EXPECT_EQ(readScriptFile("s", withStatus("failed: early", "")).failingCommand(), std::nullopt);
}

}  // namespace
}  // namespace quobrak::conformance
