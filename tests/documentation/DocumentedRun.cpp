#include "tests/documentation/DocumentedRun.h"

#include <algorithm>
#include <regex>

#include "manual/Markdown.h"
#include "tests/documentation/MarkdownBlocks.h"

namespace quobrak::documentation {

namespace {

constexpr std::string_view SAME_RUN = "in the same run";

/// Gathers the blocks of a page.
class RunReader {
 public:
  void add(const Block& block) {
    block_ = &block;
    if (block.language.empty()) {
      addScript();
    } else if (block.language == "json") {
      lastRun().shownFiles.push_back(block.text);
    } else if (block.language == "text") {
      lastRun().shownStop = block.text;
    } else {
      fail("a block of the language \"" + block.language + "\" shows nothing that a run could leave");
    }
  }

  std::vector<DocumentedRun> runs() && { return std::move(runs_); }

 private:
  [[noreturn]] void fail(const std::string& reason) const {
    throw PageError("line " + std::to_string(block_->line) + ": " + reason);
  }

  DocumentedRun& lastRun() {
    if (runs_.empty()) {
      fail("there is no script before this block");
    }
    return runs_.back();
  }

  void addScript() {
    if (block_->remarks.empty()) {
      fail("a comment before the block must tell what is expected of it");
    }
    std::vector<std::string> remarks = block_->remarks;
    if (std::erase(remarks, SAME_RUN) == 0) {
      runs_.emplace_back();
      runs_.back().name = manual::anchorOf(block_->heading) + "_line_" + std::to_string(block_->line);
    }
    // Behind the script, so that its lines keep their numbers.
    std::string text = block_->text + "\n# phone: built-in\n";
    for (const std::string& remark : remarks) {
      text += takesAsVariable(remark) ? "" : "# " + remark + "\n";
    }
    lastRun().scripts.push_back(conformance::readScriptFile("line " + std::to_string(block_->line), text));
  }

  bool takesAsVariable(const std::string& remark) {
    static const std::regex VARIABLE(R"(variable (\w+): (.*))");
    std::smatch parts;
    if (!std::regex_match(remark, parts, VARIABLE)) {
      return false;
    }
    lastRun().variables.emplace(parts[1], parts[2]);
    return true;
  }

  const Block* block_ = nullptr;
  std::vector<DocumentedRun> runs_;
};

}  // namespace

std::vector<DocumentedRun> runsOn(const std::string& page) {
  RunReader reader;
  for (const Block& block : blocksIn(page)) {
    reader.add(block);
  }
  return std::move(reader).runs();
}

}  // namespace quobrak::documentation
