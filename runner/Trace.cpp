#include "runner/Trace.h"

#include <fcntl.h>
#include <unistd.h>

#include <cmath>
#include <iostream>
#include <optional>

#include "platform/uiautomation/UIAutomationError.h"
#include "quobrakUITests/FWKTError.h"
#include "quobrakUITests/Parameters.h"
#include "quobrakUITests/Timestamp.h"
#include "runner/Configuration.h"

namespace quobrak {

namespace {

constexpr std::string_view DESCRIPTOR_PREFIX = "fd:";

[[noreturn]] void refuse(const std::string& destination, const std::string& reason) {
  throw ConfigurationError("QUOBRAK_TRACE is \"" + destination + "\": " + reason);
}

std::FILE* openDescriptor(const std::string& destination) {
  const std::optional<std::int64_t> number =
      parseInteger(std::string_view(destination).substr(DESCRIPTOR_PREFIX.size()));
  constexpr std::int64_t LARGEST = 1 << 20;
  if (!number || *number < 0 || *number > LARGEST || ::fcntl(static_cast<int>(*number), F_GETFD) == -1) {
    refuse(destination, "there is no such open descriptor; fd:N names one by its number, as in fd:3");
  }
  std::FILE* const file = ::fdopen(static_cast<int>(*number), "w");
  if (file == nullptr) {
    refuse(destination, "the descriptor is not open for writing");
  }
  return file;
}

std::FILE* openFile(const std::string& destination) {
  std::FILE* const file = std::fopen(destination.c_str(), "we");
  if (file == nullptr) {
    refuse(destination, "the file cannot be opened for writing");
  }
  return file;
}

std::string kindOf(const std::exception& error) {
  if (const auto* const ours = dynamic_cast<const FWKTError*>(&error)) {
    switch (ours->errorCase()) {
      case FWKTError::Case::envVariableError:
        return "envVariableError";
      case FWKTError::Case::documentDirectoryError:
        return "documentDirectoryError";
      case FWKTError::Case::fdslError:
        return "fdslError";
    }
  }
  return dynamic_cast<const UIAutomationError*>(&error) != nullptr ? "UIAutomationError" : "other";
}

JSONValue describe(const std::exception& error) {
  return JSONValue::Object{{"kind", kindOf(error)}, {"message", error.what()}};
}

JSONValue numberOf(std::size_t number) {
  return static_cast<std::int64_t>(number);
}

}  // namespace

double inMilliseconds(Seconds duration) {
  constexpr double MICROSECONDS_IN_ONE = 1e6;
  return std::round(duration.count() * MICROSECONDS_IN_ONE) / 1000;
}

TraceOutput::TraceOutput(const std::string& destination)
    : file_(destination.starts_with(DESCRIPTOR_PREFIX) ? openDescriptor(destination) : openFile(destination)) {}

void TraceOutput::write(JSONValue::Object event) {
  if (file_ == nullptr) {
    return;
  }
  try {
    const std::string line = JSONEncoder::encode(std::move(event)) + "\n";
    giveUpUnless(std::fwrite(line.data(), 1, line.size(), file_.get()) == line.size());
  } catch (const std::runtime_error&) {
    // A text that is no text, in an error of some driver, say.
    giveUpUnless(false);
  }
}

void TraceOutput::flush() {
  if (file_ != nullptr) {
    giveUpUnless(std::fflush(file_.get()) == 0);
  }
}

void TraceOutput::giveUpUnless(bool worked) {
  if (!worked) {
    std::cerr << "warning: the trace cannot be written any more; the run goes on without it" << std::endl;
    file_.reset();
  }
}

void Trace::scriptStarted(const TestFile& testFile, std::size_t number, std::size_t total) {
  output_.write({{"event", "scriptStarted"},
                 {"number", numberOf(number)},
                 {"total", numberOf(total)},
                 {"iterationPath", testFile.iterationPath},
                 {"time", getTimestampMillis()}});
}

void Trace::scriptFinished(const TestFile& testFile, const TestStatus& status) {
  output_.write({{"event", "scriptFinished"},
                 {"iterationPath", testFile.iterationPath},
                 {"status", status.status},
                 {"stackTrace", status.stackTrace},
                 {"time", getTimestampMillis()}});
  output_.flush();
}

void Trace::scriptRaised(const std::exception& error) {
  output_.write({{"event", "scriptError"}, {"error", describe(error)}});
}

void Trace::pictureOrDumpRaised(const std::exception& error) {
  output_.write({{"event", "pictureOrDumpError"}, {"error", describe(error)}});
}

void Trace::lineStarted(std::size_t number, std::string_view text) {
  output_.write(
      {{"event", "lineStarted"}, {"number", numberOf(number)}, {"text", text}, {"time", getTimestampMillis()}});
  output_.flush();
}

void Trace::lineFinished(std::size_t number, std::string_view text, Seconds duration, const std::exception* error) {
  JSONValue::Object event{{"event", "lineFinished"},
                          {"number", numberOf(number)},
                          {"text", text},
                          {"duration", inMilliseconds(duration)},
                          {"time", getTimestampMillis()}};
  if (error != nullptr) {
    event.emplace("error", describe(*error));
  }
  output_.write(std::move(event));
  output_.flush();
}

void Trace::stepFinished(const TestResultV2& step) {
  output_.write({{"event", "step"},
                 {"name", step.test},
                 {"start", step.measures.front().front().time},
                 {"stop", step.measures.front().back().time},
                 {"duration", step.testTime}});
}

}  // namespace quobrak
