#pragma once

#include <cstddef>
#include <filesystem>
#include <functional>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace CLI {
class App;
}

namespace quobrak::host {

/// The variables that scripts may refer to, by their names in ascending order. Values are UTF-8: ill-formed bytes are
/// replaced, as the test process replaces them.
class Variables {
 public:
  using Map = std::map<std::string, std::string, std::less<>>;

  /// Takes the place of a value that the variable had.
  void set(std::string name, std::string_view value);

  /// The value; null where there is no such variable.
  const std::string* find(std::string_view name) const;

  std::size_t size() const { return values_.size(); }
  Map::const_iterator begin() const { return values_.begin(); }
  Map::const_iterator end() const { return values_.end(); }

 private:
  Map values_;
};

/// What the command line says of variables.
struct VariableOptions {
  /// Files of lines NAME=VALUE, in the order given.
  std::vector<std::filesystem::path> files;
  /// NAME=VALUE, or NAME alone for the value that this program's own environment has.
  std::vector<std::string> definitions;
};

/// Declares `--var` and `--env-file`, which fill `options`. It must live until the command line has been read.
void declareVariableOptions(CLI::App& app, VariableOptions& options);

/// How a variable of this program's own environment is looked up.
using EnvironmentLookup = std::function<std::optional<std::string>(const std::string& name)>;

/// The variables of the files, later lines and files winning, and over these those of the command line.
///
/// A file has lines NAME=VALUE; what is behind the `=` is the value as it stands. Empty lines, and lines that begin
/// with `#`, are passed over, and blanks before a name do not count. It is encoded as scripts are. Throws `UseError`,
/// for a line of a file with FILE:LINE, where a name is none, belongs to the run itself (see `isSetByRun`), or has no
/// value, or one that no variable can hold; and where there is no such file or it is no text. Throws `EnvironmentError`
/// where a file cannot be read.
Variables readVariables(const VariableOptions& options, const EnvironmentLookup& environment);

/// Whether the host itself sets the variable for each run: `class`, `iteration`, `command`, `testFileNumber`,
/// `testFileSuiteName` and `testFilePath` with a number behind them, and all that begin with `QUOBRAK_`.
bool isSetByRun(std::string_view name);

}  // namespace quobrak::host
