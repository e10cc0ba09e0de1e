#include "host/report/Report.h"

#include <filesystem>
#include <string>
#include <string_view>

#include "host/Subcommand.h"
#include "host/report/JUnitDocument.h"
#include "host/report/ResultsDocument.h"
#include "host/report/Summary.h"
#include "host/terminal/Terminal.h"
#include "platform/foundation/ConfinedFileManager.h"
#include "platform/foundation/JSON.h"

namespace quobrak::host {

namespace {

/// The file manager writes beside the file and moves over it.
void writeWhole(const std::filesystem::path& folder, const std::string& name, std::string_view content) {
  try {
    ConfinedFileManager files(folder.string());
    files.write(bytesOf(content), files.documentDirectory() + "/" + name);
  } catch (const FileManagerError& error) {
    throw EnvironmentError(shown((folder / name).string() + ": " + error.what()));
  }
}

}  // namespace

void writeResults(const RunRecord& run) {
  writeWhole(run.folder, RESULTS_FILE, JSONEncoder::encode(resultsDocument(run)) + "\n");
  writeWhole(run.folder, JUNIT_FILE, junitDocument(run));
}

void printSummary(const RunRecord& run, const Terminal& terminal, std::ostream& out) {
  out << summaryOf(run, terminal) << std::flush;
}

}  // namespace quobrak::host
