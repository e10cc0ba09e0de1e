#pragma once

#include <map>
#include <optional>
#include <stdexcept>
#include <string>
#include <vector>

#include "tests/conformance/ScriptFile.h"

namespace quobrak::documentation {

/// A page does not say, or not clearly, what an example is: names the line and what would be right.
class PageError : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

/// Scripts on a page that run one after the other, and what the page shows of their outcome.
struct DocumentedRun {
  /// The heading that it stands under, and the line of the page.
  std::string name;
  /// At least one, each with what is expected of it.
  std::vector<conformance::ScriptFile> scripts;
  std::map<std::string, std::string> variables;
  /// Contents of JSON files.
  std::vector<std::string> shownFiles;
  /// What the process writes when it stops.
  std::optional<std::string> shownStop;
};

/// The examples of a page: its blocks without a language. The comment before one has expectations as scripts of
/// tests/scripts have them, `variable NAME: VALUE`, and `in the same run` for a script that follows the one before it.
/// They run on the built-in phone. A block of the language "json" shows a file that the run before it leaves, one of
/// "text" what it stops with. Throws `PageError` for any other block, and `ScriptFileError`.
std::vector<DocumentedRun> runsOn(const std::string& page);

}  // namespace quobrak::documentation
