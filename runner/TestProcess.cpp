#include "runner/TestProcess.h"

#include <unistd.h>

#include <csignal>
#include <cstdlib>
#include <exception>
#include <filesystem>
#include <functional>
#include <iomanip>
#include <iostream>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <system_error>
#include <utility>
#include <vector>

#include "drivers/simulator/PhoneLoader.h"
#include "drivers/simulator/SimulatedDriver.h"
#include "drivers/webdriver/WebDriverDriver.h"
#include "platform/foundation/ConfinedFileManager.h"
#include "platform/foundation/VirtualClock.h"
#include "quobrakUITests/RunObserver.h"
#include "quobrakUITests/quobrakUITests.h"
#include "runner/MadeFolders.h"
#include "runner/TimedFileManager.h"
#include "runner/Trace.h"
#include "runner/TracingDriver.h"
#include "runner/WebDriverServer.h"

namespace quobrak {

namespace {

constexpr const char* TEST_NAME = "-[quobrakUITests testMain]";

simulator::PhoneDescription loadPhone(const std::optional<std::string>& folder) {
  if (folder) {
    return simulator::loadPhone(simulator::FolderPhoneFiles(*folder));
  }
  return simulator::loadPhone(simulator::BuiltinPhoneFiles());
}

/// A path is bytes: what is not UTF-8 in it must reach the disk as it is.
std::optional<std::string> rawVariable(const std::string& name) {
  const char* const value = std::getenv(name.c_str());
  return value == nullptr ? std::nullopt : std::optional<std::string>(value);
}

std::vector<std::string> variableNames() {
  std::vector<std::string> names;
  for (char** variable = environ; *variable != nullptr; ++variable) {
    const std::string_view entry(*variable);
    names.emplace_back(entry.substr(0, entry.find('=')));
  }
  return names;
}

void warnOfUnknownVariables() {
  for (const std::string& name : unknownVariables(variableNames())) {
    std::cerr << "warning: " << name << " is set, but is no variable of this program" << std::endl;
  }
}

void warnOfIdleVariables(DriverKind driver) {
  for (const std::string& name : idleVariables(variableNames(), driver)) {
    std::cerr << "warning: " << name << " is set, but the driver "
              << (driver == DriverKind::simulator ? "simulator" : "webdriver") << " does not read it" << std::endl;
  }
}

/// The driver, once there is a clock. What the configuration got wrong is raised before anything is touched.
using DriverMaker = std::function<std::unique_ptr<UIDriver>(Clock&)>;

DriverMaker driverMaker(const Configuration& configuration) {
  if (configuration.driver == DriverKind::webdriver) {
    return [server = webDriverServer(configuration.webdriver)](Clock& clock) {
      return std::make_unique<webdriver::WebDriverDriver>(server, clock);
    };
  }
  // Function objects are copied, and a phone's description cannot be.
  auto phone = std::make_shared<simulator::PhoneDescription>(loadPhone(configuration.phone));
  return [phone](Clock& clock) { return std::make_unique<simulator::SimulatedDriver>(std::move(*phone), clock); };
}

[[noreturn]] void refuseDocuments(const std::string& path, const std::string& why) {
  throw ConfigurationError("QUOBRAK_DOCUMENTS is \"" + path + "\", which cannot be " + why);
}

/// `made` has tried to make the folder where it was missing.
std::unique_ptr<FileManager> openDocuments(const std::string& path, const MadeFolders& made) {
  std::error_code ignored;
  if (std::filesystem::is_regular_file(path, ignored)) {
    refuseDocuments(path, "used: it is no folder");
  }
  if (made.failure()) {
    refuseDocuments(path, "made: " + made.failure().message());
  }
  try {
    return std::make_unique<ConfinedFileManager>(path);
  } catch (const FileManagerError& unusable) {
    refuseDocuments(path, std::string("used: ") + unusable.what());
  }
}

/// The platform of one run, from the configuration. It must live as long as anything is run.
class InstalledPlatform {
 public:
  explicit InstalledPlatform(const Configuration& configuration) {
    // A run that is refused leaves nothing behind. The trace comes last, because opening it empties it, and because it
    // may lie in the Documents directory.
    const DriverMaker makeDriver = driverMaker(configuration);
    MadeFolders documents(configuration.documents);
    std::unique_ptr<FileManager> files = openDocuments(configuration.documents, documents);
    if (configuration.trace) {
      output_.emplace(*configuration.trace);
    }
    documents.keep();

    if (configuration.clock == ClockKind::virtualTime) {
      Clock::install(std::make_unique<VirtualClock>());
    }
    FileManager::install(std::make_unique<TimedFileManager>(std::move(files), Clock::shared()));
    ReferencePage::install(configuration.referencePage);
    std::unique_ptr<UIDriver> driver = makeDriver(Clock::shared());
    if (output_) {
      driver = std::make_unique<TracingDriver>(std::move(driver), *output_);
      trace_.emplace(*output_);
      RunObserver::install(&*trace_);
    }
    UIDriver::install(std::move(driver));
  }

  ~InstalledPlatform() {
    RunObserver::install(nullptr);
    UIDriver::install(nullptr);
  }

  InstalledPlatform(const InstalledPlatform&) = delete;
  InstalledPlatform& operator=(const InstalledPlatform&) = delete;

 private:
  std::optional<TraceOutput> output_;
  std::optional<Trace> trace_;
};

ExitStatus runTest() {
  quobrakUITests test;
  test.setUpWithError();
  std::cout << "Test Case '" << TEST_NAME << "' started." << std::endl;
  const Clock::TimePoint start = Clock::shared().now();
  ExitStatus status = ExitStatus::passed;
  try {
    test.testMain();
  } catch (const std::exception& error) {
    std::cerr << "error: " << TEST_NAME << " : failed: caught error: \"" << error.what() << '"' << std::endl;
    status = ExitStatus::failed;
  }
  const Seconds duration = Clock::shared().now() - start;
  test.tearDownWithError();
  std::cout << "Test Case '" << TEST_NAME << "' " << (status == ExitStatus::passed ? "passed" : "failed") << " ("
            << std::fixed << std::setprecision(3) << duration.count() << " seconds)." << std::endl;
  return status;
}

}  // namespace

ExitStatus runTestProcess() {
  // A reader of the trace that goes away must not end the run.
  std::signal(SIGPIPE, SIG_IGN);
  warnOfUnknownVariables();
  std::optional<InstalledPlatform> platform;
  try {
    const Configuration configuration = configurationFrom(rawVariable);
    warnOfIdleVariables(configuration.driver);
    platform.emplace(configuration);
  } catch (const ConfigurationError& error) {
    std::cerr << "configuration error: " << error.what() << std::endl;
    return ExitStatus::misconfigured;
  } catch (const simulator::PhoneDescriptionError& error) {
    std::cerr << "configuration error: " << error.what() << std::endl;
    return ExitStatus::misconfigured;
  }
  // A write asks for its folder by its relative path, and on a phone the working directory is the root.
  if (::chdir("/") != 0) {
    std::cerr << "configuration error: the working directory cannot be changed to /" << std::endl;
    return ExitStatus::misconfigured;
  }
  return runTest();
}

}  // namespace quobrak
