#include "tests/faults/SuiteRun.h"

#include <gtest/gtest.h>
#include <unistd.h>

#include <exception>
#include <filesystem>
#include <memory>
#include <optional>
#include <string_view>
#include <utility>

#include "drivers/simulator/PhoneLoader.h"
#include "drivers/simulator/SimulatedDriver.h"
#include "platform/foundation/ConfinedFileManager.h"
#include "platform/foundation/VirtualClock.h"
#include "quobrakUITests/quobrakUITests.h"
#include "runner/TimedFileManager.h"
#include "runner/Trace.h"
#include "runner/TracingDriver.h"
#include "tests/faults/WatchedFileManager.h"
#include "tests/quobrakUITests/Environment.h"
#include "tests/support/RecordingDriver.h"
#include "tests/support/TemporaryFolder.h"

namespace quobrak::faults {

namespace {

namespace fs = std::filesystem;

constexpr const char* DOCUMENTS = "Documents";
constexpr const char* LOG = "log";
constexpr const char* PRINTED = "printed";

/// The path from the Documents directory on, of what lies in it; another path as it is.
std::string pathInDocuments(const std::string& path) {
  const std::string documents = FileManager::defaultManager().documentDirectory();
  return path.starts_with(documents + "/") ? path.substr(documents.size() + 1) : path == documents ? "" : path;
}

std::unique_ptr<FileManager> watchedFiles(const fs::path& documents, const Interventions& interventions,
                                          TraceOutput& log) {
  auto around = [&interventions, &log, number = std::size_t{0}](const FileCall& call,
                                                                const std::function<void()>& carryOut) mutable {
    log.write(fileCallEvent(call.operation, pathInDocuments(call.path), textOf(call.data)));
    log.flush();
    interventions.files(++number, carryOut);
  };
  return std::make_unique<WatchedFileManager>(std::make_unique<ConfinedFileManager>(documents.string()),
                                              std::move(around));
}

std::unique_ptr<UIDriver> watchedDriver(const Suite& suite, const Interventions& interventions, TraceOutput& log) {
  auto simulated = std::make_unique<simulator::SimulatedDriver>(simulator::loadPhone(suite.phone), Clock::shared());
  simulator::Phone& phone = simulated->phone();
  phone.observeTouches([&log](const simulator::Element& touched, Point) {
    log.write(touchEvent(touched.label.empty() ? touched.identifier : touched.label));
  });
  auto driver = std::make_unique<testing::RecordingDriver>(std::move(simulated));
  driver->before = [&interventions, &log, &phone, number = std::size_t{0}](std::string_view primitive,
                                                                           const std::string& target) mutable {
    log.write(driverCallEvent(primitive, target));
    log.flush();
    interventions.driver(++number, phone);
  };
  return driver;
}

void tellEnvironment(const Suite& suite) {
  testing::setVariable("class", "dslTestsSuites");
  testing::setVariable("iteration", std::to_string(suite.iteration));
  testing::setVariable("testFileNumber", std::to_string(suite.scripts.size()));
  for (std::size_t i = 0; i < suite.scripts.size(); ++i) {
    const std::string number = std::to_string(i + 1);
    testing::setVariable("testFileSuiteName" + number, "Shop");
    testing::setVariable("testFilePath" + number, "scripts/" + suite.scripts[i].name + ".txt");
  }
}

void runHere(const Suite& suite, const fs::path& folder, const Interventions& interventions) {
  tellEnvironment(suite);
  fs::current_path("/");
  Clock::install(std::make_unique<VirtualClock>(SuiteRun::START));
  TraceOutput log((folder / LOG).string());
  Trace trace(log);
  RunObserver::install(&trace);
  FileManager::install(
      std::make_unique<TimedFileManager>(watchedFiles(folder / DOCUMENTS, interventions, log), Clock::shared()));
  UIDriver::install(std::make_unique<TracingDriver>(watchedDriver(suite, interventions, log), log));
  std::optional<std::string> raised;
  try {
    quobrakUITests test;
    test.setUpWithError();
    test.testMain();
    test.tearDownWithError();
  } catch (const std::exception& error) {
    raised = error.what();
  }
  log.write(endEvent(raised));
  UIDriver::install(nullptr);
  RunObserver::install(nullptr);
}

Files filesIn(const testing::TemporaryFolder& folder) {
  constexpr std::string_view PREFIX = "Documents/";
  Files contents;
  for (const std::string& path : folder.files()) {
    if (path.starts_with(PREFIX)) {
      contents.emplace(path.substr(PREFIX.size()), folder.read(path));
    }
  }
  return contents;
}

/// Many runs make many folders, and a disk takes its time to remove them again: in memory, where there is room for
/// files.
fs::path roomForFiles() {
  const fs::path memory = "/dev/shm";
  return ::access(memory.c_str(), W_OK | X_OK) == 0 ? memory : fs::path(::testing::TempDir());
}

}  // namespace

Files documentsBefore(const Suite& suite) {
  Files documents = suite.documents;
  for (const Script& script : suite.scripts) {
    documents.emplace("scripts/" + script.name + ".txt", script.text);
  }
  return documents;
}

SuiteRun SuiteRun::of(const Suite& suite, const Interventions& interventions) {
  const testing::TemporaryFolder folder(roomForFiles());
  const Files before = documentsBefore(suite);
  for (const auto& [path, content] : before) {
    folder.write(std::string(DOCUMENTS) + "/" + path, content);
  }
  ChildEnd end = inChildProcess([&] { runHere(suite, folder.path(), interventions); }, folder.path() / PRINTED);
  return {.end = std::move(end), .outcome = Outcome(before, filesIn(folder), folder.read(LOG))};
}

}  // namespace quobrak::faults
