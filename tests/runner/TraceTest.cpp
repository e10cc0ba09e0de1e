#include "runner/Trace.h"

#include <fcntl.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <unistd.h>

#include "platform/foundation/VirtualClock.h"
#include "platform/uiautomation/UIAutomationError.h"
#include "quobrakUITests/FWKTError.h"
#include "runner/Configuration.h"
#include "tests/support/TemporaryFolder.h"

namespace quobrak {

namespace {

using ::testing::ThrowsMessage;
using namespace std::chrono_literals;

constexpr std::chrono::milliseconds START{1700000000000};

const TestFile TEST_FILE{.script = "pause,1", .iterationPath = "tests-results/S/a/iteration1"};

std::string refusal(const std::string& destination, const std::string& reason) {
  return "QUOBRAK_TRACE is \"" + destination + "\": " + reason;
}

/// A trace to a file, on virtual time that has moved by two milliseconds since `START`.
class TraceTest : public ::testing::Test {
 protected:
  TraceTest() {
    Clock::install(std::make_unique<VirtualClock>(START));
    Clock::shared().usleep(2000);
  }

  std::string written() const { return folder_.read("trace"); }

 private:
  const testing::TemporaryFolder folder_;

 protected:
  TraceOutput output{(folder_.path() / "trace").string()};
  Trace trace{output};
};

class TraceOutputTest : public ::testing::Test {
 protected:
  std::string path() const { return (folder.path() / "trace").string(); }

  const testing::TemporaryFolder folder;
};

}  // namespace

TEST(InMilliseconds, HasThreeDecimals) {
  struct Case {
    Seconds duration;
    double expected;
  };
  for (const auto& [duration, expected] :
       {Case{0s, 0.0}, Case{1s, 1000.0}, Case{1us, 0.001}, Case{Seconds(0.0123456789), 12.346}, Case{499ns, 0.0},
        Case{501ns, 0.001}, Case{3600s, 3.6e6}, Case{-1500us, -1.5}}) {
    EXPECT_EQ(inMilliseconds(duration), expected) << duration.count();
  }
}

TEST_F(TraceTest, ScriptStarted) {
  trace.scriptStarted(TEST_FILE, 2, 3);
  output.flush();
  EXPECT_EQ(written(), R"({"event":"scriptStarted","iterationPath":"tests-results\/S\/a\/iteration1","number":2,)"
                       R"("time":1700000000002,"total":3})"
                       "\n");
}

TEST_F(TraceTest, ScriptFinished) {
  trace.scriptFinished(TEST_FILE, {.status = "failed", .stackTrace = "\"because\""});
  EXPECT_EQ(written(), R"({"event":"scriptFinished","iterationPath":"tests-results\/S\/a\/iteration1",)"
                       R"("stackTrace":"\"because\"","status":"failed","time":1700000000002})"
                       "\n");
}

TEST_F(TraceTest, ScriptAndPictureErrors) {
  trace.scriptRaised(FWKTError::envVariableError("No variable."));
  trace.pictureOrDumpRaised(UIAutomationError("No phone."));
  output.flush();
  EXPECT_EQ(written(), R"({"error":{"kind":"envVariableError","message":"No variable."},"event":"scriptError"})"
                       "\n"
                       R"({"error":{"kind":"UIAutomationError","message":"No phone."},"event":"pictureOrDumpError"})"
                       "\n");
}

TEST_F(TraceTest, GivesUpOnWhatIsNoText) {
  ::testing::internal::CaptureStderr();
  trace.lineStarted(1, "\xFF");
  trace.lineStarted(2, "pause,1");
  EXPECT_EQ(::testing::internal::GetCapturedStderr(),
            "warning: the trace cannot be written any more; the run goes on without it\n");
  EXPECT_EQ(written(), "");
}

TEST_F(TraceTest, LineStarted) {
  trace.lineStarted(7, "clickByText,Weiter\t→");
  EXPECT_EQ(written(), R"({"event":"lineStarted","number":7,"text":"clickByText,Weiter\t→","time":1700000000002})"
                       "\n");
}

TEST_F(TraceTest, LineFinished) {
  trace.lineFinished(7, "pause,1", 1234567us, nullptr);
  EXPECT_EQ(written(),
            R"({"duration":1234.567,"event":"lineFinished","number":7,"text":"pause,1","time":1700000000002})"
            "\n");
}

TEST_F(TraceTest, ALineThatRaised) {
  struct Case {
    std::string kind;
    std::shared_ptr<std::exception> error;
  };
  std::string expected;
  for (const auto& [kind, error] :
       {Case{"envVariableError", std::make_shared<FWKTError>(FWKTError::envVariableError("why"))},
        Case{"documentDirectoryError", std::make_shared<FWKTError>(FWKTError::documentDirectoryError("why"))},
        Case{"fdslError", std::make_shared<FWKTError>(FWKTError::fdslError("why"))},
        Case{"UIAutomationError", std::make_shared<UIAutomationError>("why")},
        Case{"other", std::make_shared<std::runtime_error>("why")}}) {
    trace.lineFinished(1, "x", 0s, error.get());
    expected += R"({"duration":0.0,"error":{"kind":")" + kind +
                R"(","message":"why"},"event":"lineFinished","number":1,"text":"x","time":1700000000002})" + "\n";
    EXPECT_EQ(written(), expected);
  }
}

TEST_F(TraceTest, StepFinished) {
  trace.stepFinished({.test = "Log in",
                      .testTime = 250,
                      .measures = {{{.time = 1000, .values = {{"AH_PL", 0}}}, {.time = 1250, .values = {}}}, {}}});
  output.flush();
  EXPECT_EQ(written(), R"({"duration":250,"event":"step","name":"Log in","start":1000,"stop":1250})"
                       "\n");
}

TEST_F(TraceTest, ALineEventBringsOutWhatCameBeforeIt) {
  output.write({{"event", "driver"}});
  trace.lineStarted(1, "x");
  EXPECT_THAT(written(), ::testing::StartsWith("{\"event\":\"driver\"}\n{\"event\":\"lineStarted\""));
}

TEST_F(TraceOutputTest, EmptiesAFile) {
  folder.write("trace", "an earlier trace, which was longer");
  TraceOutput output(path());
  output.write({{"event", "x"}});
  output.flush();
  EXPECT_EQ(folder.read("trace"), "{\"event\":\"x\"}\n");
}

TEST_F(TraceOutputTest, BringsOutEverythingAtItsEnd) {
  TraceOutput(path()).write({{"event", "x"}});
  EXPECT_EQ(folder.read("trace"), "{\"event\":\"x\"}\n");
}

TEST_F(TraceOutputTest, WritesToAnOpenDescriptor) {
  const int descriptor = ::open(path().c_str(), O_WRONLY | O_CREAT | O_CLOEXEC, 0600);
  ASSERT_NE(descriptor, -1);
  TraceOutput("fd:" + std::to_string(descriptor)).write({{"event", "x"}});
  EXPECT_EQ(folder.read("trace"), "{\"event\":\"x\"}\n");
}

TEST_F(TraceOutputTest, RefusesWhatIsNoOpenDescriptor) {
  const std::string reason = "there is no such open descriptor; fd:N names one by its number, as in fd:3";
  for (const std::string destination : {"fd:", "fd:x", "fd:3x", "fd: 3", "fd:-1", "fd:1000000", "fd:1048577",
                                        "fd:9223372036854775807", "fd:9223372036854775808"}) {
    EXPECT_THAT([&] { TraceOutput output(destination); },
                ThrowsMessage<ConfigurationError>(refusal(destination, reason)));
  }
}

TEST_F(TraceOutputTest, RefusesADescriptorThatIsOnlyRead) {
  const int descriptor = ::open("/dev/null", O_RDONLY | O_CLOEXEC);
  const std::string destination = "fd:" + std::to_string(descriptor);
  EXPECT_THAT([&] { TraceOutput output(destination); },
              ThrowsMessage<ConfigurationError>(refusal(destination, "the descriptor is not open for writing")));
  EXPECT_EQ(::close(descriptor), 0) << "it was left open";
}

TEST_F(TraceOutputTest, RefusesAFileThatCannotBeOpened) {
  for (const std::string& destination : {folder.path().string(), path() + "/in/no/folder"}) {
    EXPECT_THAT([&] { TraceOutput output(destination); },
                ThrowsMessage<ConfigurationError>(refusal(destination, "the file cannot be opened for writing")));
  }
}

TEST_F(TraceOutputTest, GivesUpOnceWhenItCannotWrite) {
  ::testing::internal::CaptureStderr();
  TraceOutput output("/dev/full");
  for (int i = 0; i < 3; ++i) {
    output.write({{"event", "x"}});
    output.flush();
  }
  EXPECT_EQ(::testing::internal::GetCapturedStderr(),
            "warning: the trace cannot be written any more; the run goes on without it\n");
}

TEST_F(TraceOutputTest, GivesUpWhenAnEventIsLargerThanItsBuffer) {
  TraceOutput output("/dev/full");
  ::testing::internal::CaptureStderr();
  output.write({{"event", std::string(1'000'000, 'x')}});
  EXPECT_EQ(::testing::internal::GetCapturedStderr(),
            "warning: the trace cannot be written any more; the run goes on without it\n");
}

}  // namespace quobrak
