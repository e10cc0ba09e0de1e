// What happens to each command of the table where its arguments are missing, malformed, empty or too many. The commands
// stand here once more, with what each argument is, so that the table is compared with something.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <map>
#include <string>
#include <string_view>
#include <vector>

#include "quobrakUITests/CommandDispatch.h"
#include "quobrakUITests/CommandTable.h"
#include "quobrakUITests/TestContext.h"
#include "tests/quobrakUITests/AnsweringDriver.h"
#include "tests/quobrakUITests/RaisedErrors.h"
#include "tests/support/TestPlatform.h"

namespace quobrak {
namespace {

using testing::AnsweringDriver;
using ::testing::Eq;
using ::testing::IsEmpty;

void run(const std::vector<std::string_view>& fields) {
  dispatchCommand(commandTable(), fields);
}

enum class Ending { goesThrough, raises, stopsTheProcess };

/// How a command ends, and with which words.
struct Outcome {
  Ending ending;
  std::string message;
};

const Outcome GOES_THROUGH{Ending::goesThrough, ""};

Outcome raises(const std::string& message) {
  return {Ending::raises, message};
}

/// An argument of a command.
struct Argument {
  /// A field that the command takes.
  std::string right;
  /// What happens where there is no field.
  Outcome missing;
  /// What happens with other fields, an empty one among them.
  std::map<std::string, Outcome> others;
};

/// A field that is taken as it stands.
Argument direct(const std::string& label, std::size_t field = 1) {
  return {"a",
          {Ending::stopsTheProcess,
           "Index out of range: the field " + std::to_string(field) + " (" + label + ") is missing"},
          {{"", GOES_THROUGH}, {" ", GOES_THROUGH}}};
}

/// The same, where what the command does with the field goes wrong with an empty one.
Argument directAndNotEmpty(const std::string& label, const std::string& right, const std::string& message) {
  Argument argument = direct(label);
  argument.right = right;
  argument.others = {{"", raises(message)}};
  return argument;
}

const Argument SELECTOR = direct("selector");

/// Fields that are none of what a getter takes, with what it says.
std::map<std::string, Outcome> rejections(const std::vector<std::string>& values, const std::string& before,
                                          const std::string& after) {
  std::map<std::string, Outcome> outcomes;
  for (const std::string& value : values) {
    outcomes.emplace(value, raises(before + value + after));
  }
  return outcomes;
}

const std::vector<std::string> NO_INTEGERS{"",     "x",      " 1",
                                           "1 ",   "1.5",    "1e3",
                                           "0x1",  "+",      "-",
                                           "+-1",  "\u0663", "9223372036854775808",
                                           "true", "1,",     "-9223372036854775809"};
const std::vector<std::string> NO_TRUTH_VALUES{"", "x", "TRUE", "True", "1", "0", "yes", " true", "true "};

Argument optionalInteger(const std::string& before) {
  return {"1", GOES_THROUGH, rejections(NO_INTEGERS, before, " should be an integer")};
}

Argument optionalTruthValue(const std::string& before, const std::string& after) {
  return {"true", GOES_THROUGH, rejections(NO_TRUTH_VALUES, before, after)};
}

Argument pauseDuration() {
  std::vector<std::string> wrong = NO_INTEGERS;
  wrong.insert(wrong.end(), {"-1", "-5"});
  return {"1", raises("The pause duration is missing"),
          rejections(wrong, "The pause duration ", " should be a positive integer")};
}

const Argument COORDINATE{"1", raises("A coordinate is missing"),
                          rejections(NO_INTEGERS, "The coordinate ", " should be an integer")};
const Argument OPTIONAL_COORDINATE = optionalInteger("The duration ");
const Argument DURATION = optionalInteger("The duration ");
const Argument TIMEOUT = optionalInteger("The timeout ");
const Argument MAX_SWIPE = optionalInteger("The maximum of swipes ");
const Argument NTH_ELEMENT = optionalInteger("nthElement ");
const Argument IS_ENABLED = optionalTruthValue("isEnabled ", " should be an boolean");
const Argument CLICK_ONLY_IF_EXISTS =
    optionalTruthValue("The clickOnlyIfExists parameter ", " should be true or false");
const Argument USE_BLANK_PAGE = optionalTruthValue("The use of the blank page ", " should be a boolean");
const Argument URL{"a", raises("The url should be given"), {{"", GOES_THROUGH}, {" ", GOES_THROUGH}}};

/// A number of points. What is none counts as 0.
Argument points(const std::string& label, std::size_t field) {
  Argument argument = direct(label, field);
  argument.right = "1";
  argument.others.emplace("x", GOES_THROUGH);
  return argument;
}

struct Row {
  std::string_view name;
  std::vector<Argument> arguments;
};

const std::vector<Row> ROWS{
    {"applicationStart",
     {directAndNotEmpty("bundleId", "com.example.test",
                        "The application is not initialised. Please use applicationStart or launchBrowser at the "
                        "beginning of your script.")}},
    {"applicationKill", {direct("bundleId")}},
    {"launchBrowser", {}},
    {"browserGoToUrl", {direct("url")}},
    {"browserClearCache", {}},
    {"browserPrepareAndOpen", {}},
    {"browserPrepareAndOpenForReference", {USE_BLANK_PAGE}},
    {"clickByText", {SELECTOR}},
    {"clickByTextExact", {SELECTOR}},
    {"longClickByText", {SELECTOR, DURATION}},
    {"clickByTextOnSystemPopup", {SELECTOR}},
    {"clickByXY", {points("x", 1), points("y", 2)}},
    {"longClickByXY", {points("x", 1), points("y", 2), DURATION}},
    {"clickByPercent", {COORDINATE, COORDINATE}},
    {"clickOnLastElementFound", {}},
    {"findByClass",
     {directAndNotEmpty("selector", "Button", "The expected class  does not exist"), NTH_ELEMENT, IS_ENABLED}},
    {"findByText", {SELECTOR, NTH_ELEMENT, IS_ENABLED}},
    {"findByTextExact", {SELECTOR, NTH_ELEMENT, IS_ENABLED}},
    {"installApp", {URL}},
    {"measureStart", {direct("stepName")}},
    {"measureStop", {}},
    {"pause", {pauseDuration()}},
    {"pressHome", {}},
    {"pressVolumeUp", {}},
    {"pressVolumeDown", {}},
    {"waitUntilText", {SELECTOR, TIMEOUT}},
    {"waitUntilTextExact", {SELECTOR, TIMEOUT}},
    {"waitUntilAccessibilityField", {SELECTOR, TIMEOUT}},
    {"waitUntilAccessibilityFieldExact", {SELECTOR, TIMEOUT}},
    {"waitUntilTextOnSystemPopup", {SELECTOR, TIMEOUT}},
    {"waitUntilGoneText", {SELECTOR, TIMEOUT}},
    {"waitUntilGoneTextExact", {SELECTOR, TIMEOUT}},
    {"waitUntilGoneAccessibilityField", {SELECTOR, TIMEOUT}},
    {"waitUntilGoneAccessibilityFieldExact", {SELECTOR, TIMEOUT}},
    {"waitUntilTextBeforeClick", {SELECTOR, CLICK_ONLY_IF_EXISTS}},
    {"waitUntilTextExactBeforeClick", {SELECTOR, CLICK_ONLY_IF_EXISTS}},
    {"waitUntilAccessibilityFieldBeforeClick", {SELECTOR, CLICK_ONLY_IF_EXISTS}},
    {"waitUntilAccessibilityFieldExactBeforeClick", {SELECTOR, CLICK_ONLY_IF_EXISTS}},
    {"enterText", {direct("text"), optionalInteger("The frequency ")}},
    {"enterTextFast", {direct("text")}},
    {"setTextByText", {direct("textToSet"), direct("textSelector", 2)}},
    {"setTextByTextExact", {direct("textToSet"), direct("textSelector", 2)}},
    {"scrollDownward", {}},
    {"scrollUpward", {}},
    {"scrollLeftward", {}},
    {"scrollRightward", {}},
    {"swipeDownward", {OPTIONAL_COORDINATE, OPTIONAL_COORDINATE}},
    {"swipeUpward", {OPTIONAL_COORDINATE, OPTIONAL_COORDINATE}},
    {"swipeLeftward", {COORDINATE}},
    {"swipeRightward", {COORDINATE}},
    {"swipeVertical", {COORDINATE, COORDINATE, COORDINATE}},
    {"swipeHorizontal", {COORDINATE, COORDINATE, COORDINATE}},
    {"swipeDownwardToText", {SELECTOR, MAX_SWIPE, OPTIONAL_COORDINATE}},
    {"swipeUpwardToText", {SELECTOR, MAX_SWIPE, OPTIONAL_COORDINATE}},
};

/// A line with that many right arguments.
std::vector<std::string_view> lineOf(const Row& row, std::size_t arguments) {
  std::vector<std::string_view> fields{row.name};
  for (std::size_t i = 0; i < arguments; ++i) {
    fields.push_back(row.arguments[i].right);
  }
  return fields;
}

std::string inWords(const std::vector<std::string_view>& fields) {
  std::string words;
  for (const std::string_view field : fields) {
    words += "[" + std::string(field) + "]";
  }
  return words;
}

/// Lines run on a phone that answers that all is there, except an application that needs no installing. A step is
/// measured, and an element was found.
class CommandArguments : public ::testing::Test {
 protected:
  CommandArguments() {
    driver_.existsOf = [](const std::string& element) { return element.find("MATCHES \"open\"") == element.npos; };
    TestContext::shared().setTestingApp("com.example.test");
    run({"measureStart", "a"});
    run({"findByText", "a"});
  }

  /// What the line asks of the phone.
  std::vector<std::string> operationsOf(const std::vector<std::string_view>& fields) {
    TestContext::shared().setTestingApp("com.example.test");
    driver_.operations.clear();
    run(fields);
    return driver_.operations;
  }

  void expectOutcome(const std::vector<std::string_view>& fields, const Outcome& outcome) {
    SCOPED_TRACE(inWords(fields));
    switch (outcome.ending) {
      case Ending::goesThrough:
        EXPECT_NO_THROW(operationsOf(fields));
        break;
      case Ending::raises:
        EXPECT_THAT([&] { operationsOf(fields); }, testing::raisesFdslError(outcome.message));
        // All arguments are read before anything is done.
        EXPECT_THAT(driver_.operations, IsEmpty());
        break;
      case Ending::stopsTheProcess:
        EXPECT_DEATH(operationsOf(fields), Eq("Fatal error: " + outcome.message + "\n"));
        break;
    }
  }

 private:
  testing::TestPlatform platform_;
  AnsweringDriver& driver_ = AnsweringDriver::install();
};

TEST_F(CommandArguments, AreKnownOfEveryCommand) {
  ASSERT_EQ(ROWS.size(), commandTable().size());
  for (std::size_t i = 0; i < ROWS.size(); ++i) {
    EXPECT_EQ(ROWS[i].name, commandTable()[i].name);
    EXPECT_EQ(ROWS[i].arguments.size(), commandTable()[i].arguments().size()) << ROWS[i].name;
  }
}

TEST_F(CommandArguments, AllThere) {
  for (const Row& row : ROWS) {
    expectOutcome(lineOf(row, row.arguments.size()), GOES_THROUGH);
  }
}

TEST_F(CommandArguments, MissingOnes) {
  for (const Row& row : ROWS) {
    for (std::size_t i = 0; i < row.arguments.size(); ++i) {
      expectOutcome(lineOf(row, i), row.arguments[i].missing);
    }
  }
}

TEST_F(CommandArguments, MalformedAndEmptyOnes) {
  for (const Row& row : ROWS) {
    for (std::size_t i = 0; i < row.arguments.size(); ++i) {
      std::vector<std::string_view> fields = lineOf(row, row.arguments.size());
      for (const auto& [field, outcome] : row.arguments[i].others) {
        fields[i + 1] = field;
        expectOutcome(fields, outcome);
      }
    }
  }
}

TEST_F(CommandArguments, ExtraOnesAreIgnored) {
  for (const Row& row : ROWS) {
    const std::vector<std::string> operations = operationsOf(lineOf(row, row.arguments.size()));
    for (const std::string_view extra : {"", "x", " ", "true", "-1"}) {
      std::vector<std::string_view> fields = lineOf(row, row.arguments.size());
      fields.push_back(extra);
      EXPECT_EQ(operationsOf(fields), operations) << inWords(fields);
    }
  }
}

TEST_F(CommandArguments, FirstWrongOneIsNamed) {
  expectOutcome({"clickByPercent", "x", "y"}, raises("The coordinate x should be an integer"));
  expectOutcome({"clickByPercent", "x"}, raises("The coordinate x should be an integer"));
  expectOutcome({"swipeVertical", "1", "y", "z"}, raises("The coordinate y should be an integer"));
  expectOutcome({"swipeDownwardToText", "a", "x", "y"}, raises("The maximum of swipes x should be an integer"));
  expectOutcome({"findByText", "a", "0", "no"}, raises("isEnabled no should be an boolean"));
}

TEST_F(CommandArguments, AreReadBeforeTheApplicationIsAskedFor) {
  TestContext::shared().setTestingApp("");
  EXPECT_THAT([] { run({"swipeLeftward", "x"}); }, testing::raisesFdslError("The coordinate x should be an integer"));
  EXPECT_THAT([] { run({"swipeLeftward", "1"}); }, testing::raisesNotInitialised());
}

}  // namespace
}  // namespace quobrak
