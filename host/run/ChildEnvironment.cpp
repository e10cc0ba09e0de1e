#include "host/run/ChildEnvironment.h"

#include <unistd.h>

#include <algorithm>
#include <array>

namespace quobrak::host {

namespace {

constexpr std::array<std::string_view, 17> INHERITED{
    "ALL_PROXY",  "HOME",        "HTTPS_PROXY",  "HTTP_PROXY",    "LANG",   "LANGUAGE", "LD_LIBRARY_PATH",
    "NO_PROXY",   "PATH",        "SSL_CERT_DIR", "SSL_CERT_FILE", "TMPDIR", "TZ",       "all_proxy",
    "http_proxy", "https_proxy", "no_proxy"};

/// Those of QUOBRAK_... that are this program's own, or that it sets for each iteration.
constexpr std::array<std::string_view, 3> NOT_FOR_THE_TEST_PROCESS{"QUOBRAK_DOCUMENTS", "QUOBRAK_TEST_PROCESS",
                                                                   "QUOBRAK_TRACE"};

bool isOneOf(std::span<const std::string_view> names, std::string_view name) {
  return std::find(names.begin(), names.end(), name) != names.end();
}

bool isPassedOn(std::string_view name) {
  return isOneOf(INHERITED, name) || name.starts_with("LC_") ||
         (name.starts_with("QUOBRAK_") && !isOneOf(NOT_FOR_THE_TEST_PROCESS, name));
}

std::string_view classOf(RunKind kind) {
  switch (kind) {
    case RunKind::command:
      return "dslCommandTest";
    case RunKind::reference:
      return "dslTestReference";
    case RunKind::scripts:
      break;
  }
  return "dslTestsSuites";
}

}  // namespace

EnvironmentVariables ownEnvironment() {
  EnvironmentVariables variables;
  for (char** variable = environ; *variable != nullptr; ++variable) {
    const std::string_view entry(*variable);
    const std::size_t equals = entry.find('=');
    if (equals != std::string_view::npos) {
      // Of two with one name the first one counts, as it does for getenv.
      variables.emplace(entry.substr(0, equals), entry.substr(equals + 1));
    }
  }
  return variables;
}

EnvironmentVariables commonEnvironment(const EnvironmentVariables& own, const EnvironmentVariables& variables,
                                       const TestProcessSettings& settings) {
  EnvironmentVariables common = variables;
  std::copy_if(own.begin(), own.end(), std::inserter(common, common.end()),
               [](const auto& variable) { return isPassedOn(variable.first); });
  if (settings.driver) {
    common["QUOBRAK_DRIVER"] = *settings.driver;
  }
  if (settings.clock) {
    common["QUOBRAK_CLOCK"] = *settings.clock;
  }
  if (settings.phone) {
    common["QUOBRAK_PHONE"] = settings.phone->native();
  }
  return common;
}

std::vector<std::string> iterationEnvironment(const EnvironmentVariables& common, const IterationTask& task) {
  EnvironmentVariables variables = common;
  variables["class"] = classOf(task.kind);
  variables["QUOBRAK_DOCUMENTS"] = task.documents.native();
  variables["QUOBRAK_TRACE"] = task.trace.native();
  if (task.kind == RunKind::command) {
    variables["command"] = task.command;
  } else {
    variables["iteration"] = std::to_string(task.iteration);
  }
  if (task.kind == RunKind::scripts) {
    variables["testFileNumber"] = std::to_string(task.scripts.size());
    for (std::size_t i = 0; i < task.scripts.size(); ++i) {
      const std::string number = std::to_string(i + 1);
      variables["testFileSuiteName" + number] = task.scripts[i].suite;
      variables["testFilePath" + number] = task.scripts[i].path;
    }
  }
  std::vector<std::string> entries;
  entries.reserve(variables.size());
  for (const auto& [name, value] : variables) {
    entries.push_back(name + "=" + value);
  }
  return entries;
}

}  // namespace quobrak::host
