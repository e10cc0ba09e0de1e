#include "host/run/ScriptCollection.h"

#include <algorithm>
#include <map>
#include <set>
#include <utility>

#include "host/Subcommand.h"
#include "host/check/ScriptPaths.h"
#include "host/terminal/Terminal.h"
#include "platform/foundation/Paths.h"
#include "platform/foundation/Unicode.h"
#include "quobrakUITests/Replacing.h"
#include "quobrakUITests/ScriptLines.h"

namespace quobrak::host {

namespace fs = std::filesystem;

namespace {

constexpr const char* SUITE_OF_NO_FOLDER = "Scripts";

std::string folderOf(const fs::path& file) {
  const fs::path folder = fs::absolute(file).lexically_normal().parent_path().filename();
  return folder.empty() ? SUITE_OF_NO_FOLDER : repairedUTF8(folder.native());
}

/// Whether results can lie in a folder of that name, and nowhere else.
bool isFolderName(std::string_view name) {
  return !name.empty() && name != "." && name != ".." && name.find('/') == std::string_view::npos;
}

/// As a person counts them: what follows the last newline is a line where there is something.
std::size_t lineCountOf(const std::string& bytes) {
  const std::string text = decodedText(bytes).value_or(repairedUTF8(bytes));
  ScriptLines lines(text);
  std::size_t count = 0;
  bool isLastEmpty = false;
  while (const auto line = lines.next()) {
    ++count;
    isLastEmpty = line->empty();
  }
  return isLastEmpty ? count - 1 : count;
}

/// Gives each script of a suite a name of its own.
class Names {
 public:
  std::string nameFor(const std::string& suite, const std::string& wanted) {
    std::size_t& number = nextNumbers_.try_emplace({suite, wanted}, 2).first->second;
    std::string name = wanted;
    while (!taken_.emplace(suite, name).second) {
      name = wanted + "-" + std::to_string(number++);
    }
    return name;
  }

 private:
  using SuiteAndName = std::pair<std::string, std::string>;

  std::set<SuiteAndName> taken_;
  /// Of a name that is wanted once more, so that thousands of one name need not be tried anew each time.
  std::map<SuiteAndName, std::size_t> nextNumbers_;
};

}  // namespace

ScriptCollection collectScripts(const std::vector<std::string>& paths, const std::optional<std::string>& suite) {
  if (suite && !isFolderName(*suite)) {
    throw UseError("--suite is \"" + shown(*suite) + "\", but must be the name of a folder, without a slash");
  }
  if (std::find(paths.begin(), paths.end(), STANDARD_INPUT) != paths.end()) {
    throw UseError("a script from standard input can be checked, but not run: its results would have no name");
  }
  ScriptCollection collection;
  Names names;
  NamedScripts named = readScripts(paths);
  for (ScriptSource& source : named.scripts) {
    const fs::path file(source.name);
    // The test process is told of it in an environment variable, which it takes for UTF-8.
    const std::string fileName = repairedUTF8(file.filename().native());
    const std::string wanted = deletingPathExtension(fileName);
    const std::string suiteOfFile = suite.value_or(folderOf(file));
    const std::string name = names.nameFor(suiteOfFile, wanted);
    if (name != wanted) {
      collection.notices.push_back("The suite " + suiteOfFile + " has a script " + wanted +
                                   " already: the results of " + file.string() + " are those of " + name);
    }
    collection.scripts.push_back(
        {.script = {.suite = suiteOfFile, .name = name, .source = file, .lineCount = lineCountOf(source.bytes)},
         .fileName = name + fileName.substr(wanted.size()),
         .bytes = std::move(source.bytes)});
  }
  return collection;
}

fs::path placeOfScript(std::size_t index, std::size_t count, std::string_view fileName) {
  return fs::path("scripts") / numbered(index + 1, count) / fileName;
}

std::string tellablePlaceOfScript(std::size_t index, std::size_t count, std::string_view fileName) {
  // The test process takes every "/Documents" out of a path, because hosts may give one that begins above the Documents
  // directory. Where a script's own name begins so, there has to be one more for it to take out.
  return replacingOccurrences(placeOfScript(index, count, fileName).native(), "/Documents", "//DocumentsDocuments");
}

std::string numbered(std::size_t number, std::size_t greatest) {
  constexpr std::size_t FEWEST_DIGITS = 3;
  const std::string digits = std::to_string(number);
  const std::size_t width = std::max(FEWEST_DIGITS, std::to_string(greatest).size());
  return std::string(width > digits.size() ? width - digits.size() : 0, '0') + digits;
}

}  // namespace quobrak::host
