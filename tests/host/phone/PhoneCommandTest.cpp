#include "host/phone/PhoneCommand.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <CLI/CLI.hpp>
#include <algorithm>
#include <filesystem>
#include <string>
#include <vector>

#include "tests/host/phone/LookedAtPhone.h"
#include "tests/support/TemporaryFolder.h"

namespace quobrak::host {
namespace {

namespace fs = std::filesystem;
using quobrak::testing::TemporaryFolder;
using ::testing::ElementsAre;
using ::testing::EndsWith;
using ::testing::HasSubstr;
using ::testing::Not;
using ::testing::StartsWith;
using ::testing::ThrowsMessage;

struct Outcome {
  ExitStatus status{};
  std::string out;
  std::string err;
};

Outcome run(std::vector<std::string> arguments) {
  CLI::App app;
  const auto action = phoneSubcommand().declare(app);
  std::reverse(arguments.begin(), arguments.end());
  app.parse(arguments);
  ::testing::internal::CaptureStdout();
  ::testing::internal::CaptureStderr();
  Outcome outcome;
  try {
    outcome.status = action();
  } catch (const std::runtime_error&) {
    ::testing::internal::GetCapturedStdout();
    ::testing::internal::GetCapturedStderr();
    throw;
  }
  outcome.out = ::testing::internal::GetCapturedStdout();
  outcome.err = ::testing::internal::GetCapturedStderr();
  return outcome;
}

/// A phone in a folder of its own.
class PhoneCommandTest : public ::testing::Test {
 protected:
  PhoneCommandTest() {
    const quobrak::testing::MemoryPhoneFiles files = quobrak::testing::lookedAtPhone();
    for (const auto& [path, content] : files.contents()) {
      folder.write("phone/" + path, content);
    }
  }

  /// With the phone's folder before the arguments.
  Outcome runOnPhone(std::vector<std::string> arguments) const {
    arguments.insert(arguments.begin(), phone());
    return run(std::move(arguments));
  }

  template <class Error = UseError>
  void expectRefusal(const std::vector<std::string>& arguments, const std::string& message) const {
    EXPECT_THAT([&] { runOnPhone(arguments); }, ThrowsMessage<Error>(message));
  }

  std::string phone() const { return (folder.path() / "phone").string(); }
  std::string file(const std::string& name) const { return (folder.path() / name).string(); }

  const TemporaryFolder folder;
};

TEST_F(PhoneCommandTest, WithoutOptionsTellsOfThePhone) {
  const Outcome outcome = runOnPhone({});
  EXPECT_EQ(outcome.status, ExitStatus::success);
  EXPECT_THAT(outcome.out, StartsWith("Small phone\n  Screen  100 x 200 points, 1 pixel to a point\n"));
  EXPECT_THAT(runOnPhone({"--format", "json"}).out, HasSubstr("\"name\":\"Small phone\""));
}

TEST_F(PhoneCommandTest, WithoutAFolderThePhoneIsTheOneOfTheProgram) {
  EXPECT_THAT(run({}).out, StartsWith("Built-in phone\n"));
}

TEST_F(PhoneCommandTest, TellsAllFaultsOfADescription) {
  folder.write("phone/phone.json", "{\"name\": 1,\n \"scale\": 9}");
  const Outcome outcome = runOnPhone({"--text", "basket"});
  EXPECT_EQ(outcome.status, ExitStatus::failed);
  EXPECT_THAT(outcome.out, HasSubstr(phone() + "/phone.json:1:2: name: "));
  EXPECT_THAT(outcome.out, HasSubstr(phone() + "/phone.json:2:2: scale: "));
  EXPECT_EQ(outcome.err, "");
  const Outcome forPrograms = runOnPhone({"--format", "json"});
  EXPECT_EQ(forPrograms.status, ExitStatus::failed);
  EXPECT_THAT(forPrograms.out, StartsWith("{\"faults\":[\""));
}

TEST_F(PhoneCommandTest, AFolderThatIsNoneIsSaidToBeMissing) {
  EXPECT_THAT([&] { run({file("none")}); }, ThrowsMessage<UseError>("there is no folder " + file("none") +
                                                                    "; a phone is a folder with a file phone.json"));
}

TEST_F(PhoneCommandTest, ShowsTheScreenAfterTheStartOrOneByItsName) {
  const Outcome started = runOnPhone({"--application", "com.example.test"});
  EXPECT_EQ(started.status, ExitStatus::success);
  EXPECT_THAT(started.out, StartsWith("com.example.test, screen \"start\"\n\nX      Y  Width  Height  Element\n"));
  EXPECT_THAT(started.out, HasSubstr("StaticText \"Hello\""));
  EXPECT_THAT(runOnPhone({"--screen", "start"}).out, HasSubstr("StaticText \"Welcome\""));
  EXPECT_THAT(runOnPhone({"--screen", "home"}).out, StartsWith("com.apple.springboard, screen \"home\"\n"));
  EXPECT_THAT(runOnPhone({"--screen", "other", "--format", "json"}).out,
              StartsWith("{\"application\":\"com.example.test\""));
}

TEST_F(PhoneCommandTest, TriesASelector) {
  EXPECT_EQ(runOnPhone({"--screen", "start", "--text", "basket"}).out,
            R"(com.example.test, screen "start"

--text "basket" finds enabled elements whose label, identifier or placeholder contains "basket", in any case.
So do clickByText,basket and findByText,basket,N.
1 element matches.
  1. Button "Your basket" identifier 'basket'
     in Application "Test" > Window
     at 0, 20, 100 x 20: a tap lands on it

#  X      Y  Width  Height  Element
   0      0    100     200  Application "Test"
   0      0    100     200    Window
   0      0    100      20      StaticText "Welcome" identifier 'title'
1  0     20    100      20      Button "Your basket" identifier 'basket'
   0     40    100      20      Button [disabled] "Old basket" identifier 'off'
   0     60    100      20      TextField identifier 'search' value 'la' placeh…
   0     80    100      20      Button [covered] "Under" identifier 'under'
   0     80    100      20      Image "Cover" identifier 'cover'
   0    100    100      40      ScrollView identifier 'list'
   0  150.5    100      20        Button [outside] "Below" identifier 'below'
   0    500    100      20      Button [outside] "Away" identifier 'away'
   0    140      0      20      Button [no extent] "Flat" identifier 'flat'
   0    150    100      20      Button [invisible] "Ghost" identifier 'ghost'
   0      0      0       0      Other [no extent]
)");
}

TEST_F(PhoneCommandTest, WhereNothingMatchesTheStatusTellsAndHintsHelp) {
  const Outcome outcome = runOnPhone({"--text", "Old baskt"});
  EXPECT_EQ(outcome.status, ExitStatus::failed);
  EXPECT_THAT(outcome.out, HasSubstr("No element matches.\nThere is something like it: did you mean Old basket?\n\n"));
  const Outcome forPrograms = runOnPhone({"--text", "Old baskt", "--format", "json"});
  EXPECT_EQ(forPrograms.status, ExitStatus::failed);
  EXPECT_THAT(forPrograms.out, HasSubstr("\"matches\":[]"));
}

TEST_F(PhoneCommandTest, DisabledElementsAreFoundWhereTheyAreAskedFor) {
  EXPECT_EQ(runOnPhone({"--text", "Old"}).status, ExitStatus::failed);
  EXPECT_THAT(runOnPhone({"--text", "Old", "--disabled"}).out, HasSubstr("\n1 element matches.\n"));
  EXPECT_THAT(runOnPhone({"--label", "Old"}).out, HasSubstr("\n1 element matches.\n"));
}

TEST_F(PhoneCommandTest, DrawsTheScreenAndFramesWhatIsFound) {
  const Outcome plain = runOnPhone({"--screen", "start", "--picture", file("plain.png")});
  EXPECT_EQ(plain.status, ExitStatus::success);
  EXPECT_THAT(plain.out, EndsWith("\nPicture: " + file("plain.png") + "\n"));
  runOnPhone({"--screen", "start", "--text", "basket", "--picture", file("framed.png")});
  EXPECT_NE(folder.read("plain.png"), folder.read("framed.png"));
  runOnPhone({"--screen", "start", "--text", "zzz", "--picture", file("framed.png")});
  EXPECT_EQ(folder.read("plain.png"), folder.read("framed.png")) << "nothing is found, so nothing is framed";
}

TEST_F(PhoneCommandTest, DrawsAllScreensOrThoseOfAnApplication) {
  const Outcome all = runOnPhone({"--pictures", file("all")});
  EXPECT_EQ(all.status, ExitStatus::success);
  EXPECT_EQ(all.out, file("all/com.apple.springboard/home.png") + "\n" + file("all/com.example.test/other.png") + "\n" +
                         file("all/com.example.test/start.png") + "\n");
  const Outcome some =
      runOnPhone({"--pictures", file("some"), "--application", "com.apple.springboard", "--format", "json"});
  EXPECT_THAT(some.out, StartsWith("{\"pictures\":[\""));
  EXPECT_TRUE(fs::exists(file("some/com.apple.springboard/home.png")));
  EXPECT_FALSE(fs::exists(file("some/com.example.test")));
  runOnPhone({"--screen", "start", "--picture", file("plain.png")});
  EXPECT_EQ(folder.read("all/com.example.test/start.png"), folder.read("plain.png"));
}

TEST_F(PhoneCommandTest, NamesThatThePhoneDoesNotHaveAreAskedBack) {
  expectRefusal({"--application", "com.example.tset"},
                "the phone has no application \"com.example.tset\"; did you mean com.example.test?");
  expectRefusal({"--application", "x", "--pictures", file("all")},
                "the phone has no application \"x\"; the choices are: com.apple.springboard, com.example.test");
  expectRefusal({"--screen", "strat"}, "no application has a screen \"strat\"; did you mean start?");
  expectRefusal({"--application", "com.example.test", "--screen", "home"},
                "the application com.example.test has no screen \"home\" that it begins with or that a rule shows; the "
                "choices are: other, start");
  EXPECT_THAT(
      [] {
        run({"--screen", "start"});
      },
      ThrowsMessage<UseError>("several applications have a screen \"start\"; choose one with --application: "
                              "com.apple.mobilesafari, com.example.shop"));
}

TEST_F(PhoneCommandTest, OptionsThatDoNotGoTogetherAreRefused) {
  expectRefusal({"--field", "a", "--label", "b"},
                "--label and --field cannot be tried together; try one after the other");
  expectRefusal({"--disabled", "--label", "b"},
                "--disabled goes with --text, --text-exact and --class; the others find disabled elements too");
  expectRefusal({"--disabled"},
                "--disabled goes with --text, --text-exact and --class; the others find disabled elements too");
  for (const char* const option : {"--screen", "--picture", "--class"}) {
    expectRefusal({"--pictures", file("all"), option, "Button"},
                  "--pictures draws all screens as they are; use --picture for a single one, or to see what is found");
  }
}

TEST_F(PhoneCommandTest, OfSeveralApplicationsTheOneInFrontIsShown) {
  EXPECT_THAT(run({"--class", "Icon"}).out, StartsWith("com.apple.springboard, screen \"home\"\n"));
}

TEST_F(PhoneCommandTest, RulesWithoutEndAreTold) {
  folder.write("phone/test/app.json", R"({"bundleIdentifier": "com.example.test", "name": "Test",
      "firstScreen": "start", "rules": [{"on": "screen", "screen": "start", "do": [{"show": "start"}]}]})");
  const Outcome outcome = runOnPhone({"--text", "basket"});
  EXPECT_EQ(outcome.status, ExitStatus::failed);
  EXPECT_EQ(outcome.out, "");
  EXPECT_EQ(outcome.err,
            "quobrak: launch of the application \"com.example.test\" on the simulated phone: the rules of "
            "\"com.example.test\" set each other off without end\n");
}

TEST_F(PhoneCommandTest, APictureThatCannotBeWrittenIsAnErrorBeforeAnythingIsShown) {
  folder.write("notes.txt", "mine");
  EXPECT_THROW(runOnPhone({"--screen", "start", "--picture", file("notes.txt")}), EnvironmentError);
  EXPECT_EQ(folder.read("notes.txt"), "mine");
}

TEST_F(PhoneCommandTest, AsJsonBytesThatAreNoTextAreReplaced) {
  EXPECT_THAT(runOnPhone({"--pictures", file("all\xFF"), "--format", "json"}).out, HasSubstr("all\uFFFD"));
  EXPECT_THAT(runOnPhone({"--text", "no\xFF", "--format", "json"}).out, HasSubstr("\"text\":\"no\uFFFD\""));
  folder.write("phone/phone.json", "{\"\xFF\": 1}");
  const Outcome faulty = runOnPhone({"--format", "json"});
  EXPECT_EQ(faulty.status, ExitStatus::failed);
  EXPECT_THAT(faulty.out, StartsWith("{\"faults\":[\""));
}

}  // namespace
}  // namespace quobrak::host
