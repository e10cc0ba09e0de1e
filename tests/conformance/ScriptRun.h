#pragma once

#include <string>
#include <vector>

#include "tests/support/TemporaryFolder.h"

namespace quobrak::conformance {

/// A run of whole scripts, as a host starts one: the environment and a Documents directory go in, files come out.
/// Installs the file manager.
class ScriptRun {
 public:
  ScriptRun();

  /// One more script of the suite "Shop".
  void add(const std::string& name, const std::string& script);

  /// Runs them all. What the test raises passes through.
  void run();

  /// Status and reason of each script.
  std::vector<std::string> statuses() const;

  /// The names of the measured steps, sorted.
  std::vector<std::string> steps() const;

  /// The names of the pictures of a script, sorted.
  std::vector<std::string> picturesOf(const std::string& script) const;

  std::string dumpOf(const std::string& script) const;

 private:
  /// The names of the files in a folder of the Documents directory, sorted.
  std::vector<std::string> namesIn(const std::string& folder) const;

  testing::TemporaryFolder documents_;
  int scripts_ = 0;
};

}  // namespace quobrak::conformance
