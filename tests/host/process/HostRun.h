#pragma once

#include <gtest/gtest.h>

#include <filesystem>
#include <string>
#include <vector>

#include "platform/foundation/JSON.h"
#include "tests/host/run/DefaultSignals.h"
#include "tests/process/TestProcessRun.h"
#include "tests/support/TemporaryFolder.h"

namespace quobrak::testing {

/// Starts the built `quobrak run` in a folder of its own, quietly, on virtual time and a small phone, with results in
/// the folder "out". What `start` has besides can be changed before.
class HostRun : public ::testing::Test {
 protected:
  HostRun();

  /// `quobrak run --quiet --clock virtual --phone ... --out out`, with these arguments behind it.
  ProcessEnd run(std::vector<std::string> arguments) const;

  /// Makes a shell script that can stand in for the test process; gives its path. The real one is "$REAL" in it, where
  /// the run was given `realTestProcess()`.
  std::string testProcess(const std::string& shellScript) const;
  /// The arguments that tell a stand-in of the real test process.
  static std::vector<std::string> realTestProcess();

  /// What results.json holds.
  JSONValue results() const;

  /// The program inherits them.
  const host::DefaultSignals signals;
  const TemporaryFolder folder;
  const TemporaryFolder phone;
  ProcessStart start;
};

/// The members of one name in all elements of an array.
std::vector<std::string> textsOf(const JSONReader& array, std::string_view member);

}  // namespace quobrak::testing
