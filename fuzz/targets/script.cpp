// A script, behind a line with the answers of a phone and a disk that do as they like. Fatal stops are allowed: they
// are raised here (see FatalStop.h), so that no input needs to be avoided.

#include <cstdlib>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

#include "fuzz/support/CapriciousDriver.h"
#include "fuzz/support/CapriciousFiles.h"
#include "fuzz/support/FatalStop.h"
#include "fuzz/support/Input.h"
#include "fuzz/support/Require.h"
#include "platform/foundation/VirtualClock.h"
#include "platform/uiautomation/UIAutomationError.h"
#include "quobrakUITests/FWKTError.h"
#include "quobrakUITests/Find.h"
#include "quobrakUITests/RunObserver.h"
#include "quobrakUITests/TestContext.h"
#include "quobrakUITests/quobrakUITests.h"

namespace quobrak::fuzz {

namespace {

/// Sees to it that lines run in their order, one after the other, and keeps the one that fails.
class LineObserver final : public RunObserver {
 public:
  /// The line that began last; 0 before any.
  std::size_t number = 0;
  bool isRunning = false;
  /// Whether the last line raised something.
  bool hasFailed = false;
  /// How the system reports what it raised, where that is of its own.
  std::string report;

  void lineStarted(std::size_t started, std::string_view) override {
    require(!isRunning && started > number, "lines run one after the other, in their order");
    number = started;
    isRunning = true;
  }

  void lineFinished(std::size_t finished, std::string_view text, Seconds, const std::exception* error) override {
    require(isRunning && finished == number, "the line that runs is the one that ends");
    isRunning = false;
    const auto* const known = dynamic_cast<const FWKTError*>(error);
    const std::string cause = known == nullptr ? "" : known->message();
    hasFailed = error != nullptr;
    report = "Error on line " + std::string(text) + " (line: " + std::to_string(number) + "). Cause: " + cause;
  }

  void scriptStarted(const TestFile&, std::size_t, std::size_t) override {}
  void scriptFinished(const TestFile&, const TestStatus&) override {}
  void scriptRaised(const std::exception&) override {}
  void pictureOrDumpRaised(const std::exception&) override {}
  void stepFinished(const TestResultV2&) override {}
};

/// Values may refer to others; one that leads back to itself would have no end.
void setVariables() {
  constexpr int OVERWRITES = 1;
  ::setenv("A", "Lamp", OVERWRITES);
  ::setenv("EMPTY", "", OVERWRITES);
  ::setenv("TWICE", "${A},${A}", OVERWRITES);
  ::setenv("OPEN", "${", OVERWRITES);
  ::setenv("LINES", "a\nb", OVERWRITES);
  ::setenv("UMLAUT", "Ä", OVERWRITES);
}

/// What one script leaves, the next one would find.
void forgetEarlierScripts() {
  TestContext::shared().setTestingApp("");
  TestContext::shared().setCurrentTestResult({.test = "", .testTime = 0, .measures = {{}}});
  TestContext::shared().resetScreenshotNumber();
  Find::lastElementFound.reset();
}

void runScript(const std::string& script, LineObserver& observer, const CapriciousDriver& driver) {
  try {
    quobrakUITests().executeActions(script);
    require(!observer.isRunning && !observer.hasFailed, "a script whose line fails does not pass");
  } catch (const FWKTError& error) {
    if (error.errorCase() == FWKTError::Case::envVariableError) {
      require(observer.number == 0 && driver.calls() == 0, "a variable that is missing is found before any line runs");
    } else if (error.errorCase() == FWKTError::Case::fdslError) {
      require(error.message() == observer.report, "the error of a command is reported with its line");
    }
    require(isUTF8(error.message()), "an error can be read");
  } catch (const UIAutomationError&) {
    require(driver.hasFailed(), "only the driver raises what drivers raise");
  } catch (const FatalStop& stop) {
    require(observer.isRunning && stop.lineNumber == observer.number && !stop.message.empty(),
            "only a line that runs stops the process, and it says which and why");
  }
}

}  // namespace

}  // namespace quobrak::fuzz

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace quobrak;
  using namespace quobrak::fuzz;
  setVariables();
  forgetEarlierScripts();
  Input input(data, size);
  Answers answers{std::string(input.line())};
  auto ownedDriver = std::make_unique<CapriciousDriver>(answers);
  const CapriciousDriver& driver = *ownedDriver;
  UIDriver::install(std::move(ownedDriver));
  FileManager::install(std::make_unique<CapriciousFiles>(answers));
  Clock::install(std::make_unique<VirtualClock>(std::chrono::milliseconds(1'700'000'000'000)));
  LineObserver observer;
  RunObserver::install(&observer);
  runScript(input.textRest(), observer, driver);
  RunObserver::install(nullptr);
  return 0;
}
