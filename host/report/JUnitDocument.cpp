#include "host/report/JUnitDocument.h"

#include <algorithm>
#include <array>
#include <map>
#include <pugixml.hpp>
#include <sstream>
#include <string_view>
#include <vector>

#include "host/report/RunWords.h"
#include "host/terminal/Terminal.h"
#include "quobrakUITests/Replacing.h"

namespace quobrak::host {

namespace {

/// The two characters besides control characters that XML has no place for.
constexpr std::array<std::string_view, 2> NO_CHARACTERS{"\xEF\xBF\xBE", "\xEF\xBF\xBF"};
constexpr std::string_view REPLACEMENT = "\xEF\xBF\xBD";

/// The text on one line.
std::string xmlText(std::string_view bytes) {
  std::string text = shown(bytes);
  for (const std::string_view character : NO_CHARACTERS) {
    text = replacingOccurrences(text, character, REPLACEMENT);
  }
  return text;
}

/// "1.234".
std::string seconds(std::int64_t milliseconds) {
  const std::string digits = std::to_string(std::max<std::int64_t>(0, milliseconds));
  const std::string padded = std::string(digits.size() < 4 ? 4 - digits.size() : 0, '0') + digits;
  return padded.substr(0, padded.size() - 3) + "." + padded.substr(padded.size() - 3);
}

void set(pugi::xml_node node, const char* name, const std::string& text) {
  node.append_attribute(name) = text.c_str();
}

/// What the test cases of a suite, or of all, come to.
struct Totals {
  std::size_t tests = 0;
  std::size_t failures = 0;
  std::size_t errors = 0;
  std::size_t skipped = 0;
  std::int64_t milliseconds = 0;

  void add(const Totals& other) {
    tests += other.tests;
    failures += other.failures;
    errors += other.errors;
    skipped += other.skipped;
    milliseconds += other.milliseconds;
  }

  void write(pugi::xml_node node) const {
    set(node, "tests", std::to_string(tests));
    set(node, "failures", std::to_string(failures));
    set(node, "errors", std::to_string(errors));
    set(node, "skipped", std::to_string(skipped));
    set(node, "time", seconds(milliseconds));
  }
};

std::string suiteNameOf(const RunScript& script) {
  return script.suite.empty() ? "quobrak" : script.suite;
}

/// Whether the test process did not go through, and no script tells so.
bool isUnexplained(const IterationRecord& iteration) {
  return iteration.outcome != IterationOutcome::finished &&
         std::none_of(iteration.scripts.begin(), iteration.scripts.end(),
                      [](const ScriptRecord& script) { return script.outcome == ScriptOutcome::aborted; });
}

class JUnitWriter {
 public:
  explicit JUnitWriter(const RunRecord& run) : run_(run) {}

  std::string document() {
    pugi::xml_document document;
    pugi::xml_node declaration = document.append_child(pugi::node_declaration);
    set(declaration, "version", "1.0");
    set(declaration, "encoding", "UTF-8");
    pugi::xml_node root = document.append_child("testsuites");
    set(root, "name", "quobrak");
    Totals totals = appendSuites(root);
    if (std::any_of(run_.iterations.begin(), run_.iterations.end(), isUnexplained)) {
      totals.add(appendSuiteOfProcess(root));
    }
    totals.write(root);
    std::ostringstream text;
    document.save(text, "  ");
    return text.str();
  }

 private:
  struct Suite {
    pugi::xml_node node;
    Totals totals;
  };

  Totals appendSuites(pugi::xml_node root) const {
    std::vector<Suite> suites;
    const std::vector<std::size_t> suiteOfScript = appendEmptySuites(root, suites);
    for (const IterationRecord& iteration : run_.iterations) {
      for (const ScriptRecord& script : iteration.scripts) {
        Suite& suite = suites.at(suiteOfScript.at(script.script));
        suite.totals.add(appendCase(suite.node, iteration, script));
      }
    }
    Totals totals;
    for (const Suite& suite : suites) {
      suite.totals.write(suite.node);
      totals.add(suite.totals);
    }
    return totals;
  }

  /// In the order in which they first appear. Gives for each script the index of its suite.
  std::vector<std::size_t> appendEmptySuites(pugi::xml_node root, std::vector<Suite>& suites) const {
    std::map<std::string, std::size_t> indices;
    std::vector<std::size_t> suiteOfScript;
    for (const RunScript& script : run_.scripts) {
      const auto [suite, isNew] = indices.try_emplace(suiteNameOf(script), suites.size());
      if (isNew) {
        suites.push_back({.node = root.append_child("testsuite"), .totals = {}});
        set(suites.back().node, "name", xmlText(suite->first));
      }
      suiteOfScript.push_back(suite->second);
    }
    return suiteOfScript;
  }

  Totals appendCase(pugi::xml_node suite, const IterationRecord& iteration, const ScriptRecord& script) const {
    const RunScript& named = run_.scripts.at(script.script);
    const std::string name = named.name.empty() ? titleOf(run_, script.script) : named.name;
    pugi::xml_node node = suite.append_child("testcase");
    set(node, "classname", xmlText(suiteNameOf(named)));
    set(node, "name", xmlText(name) + ", " + titleOf(iteration));
    if (script.duration) {
      set(node, "time", seconds(*script.duration));
    }
    Totals totals{.tests = 1, .milliseconds = std::max<std::int64_t>(0, script.duration.value_or(0))};
    appendOutcome(node, iteration, script, totals);
    appendFolder(node, iteration);
    return totals;
  }

  static void appendOutcome(pugi::xml_node node, const IterationRecord& iteration, const ScriptRecord& script,
                            Totals& totals) {
    switch (script.outcome) {
      case ScriptOutcome::passed:
        return;
      case ScriptOutcome::failed:
        totals.failures = 1;
        appendTrouble(node, "failure", failureIn(script.line, causeOf(script)), script);
        return;
      case ScriptOutcome::aborted:
        totals.errors = 1;
        appendTrouble(node, "error",
                      failureIn(script.line, causeOf(script).empty() ? iteration.message : causeOf(script)), script);
        return;
      case ScriptOutcome::notRun:
        totals.skipped = 1;
        set(node.append_child("skipped"), "message",
            "The test process ended before the script's turn" +
                (iteration.message.empty() ? "." : ": " + xmlText(iteration.message)));
        return;
    }
  }

  static void appendTrouble(pugi::xml_node node, const char* element, const std::string& message,
                            const ScriptRecord& script) {
    pugi::xml_node trouble = node.append_child(element);
    set(trouble, "message", xmlText(message));
    set(trouble, "type", std::string(nameOf(script.outcome)));
    if (!script.stackTrace.empty()) {
      trouble.append_child(pugi::node_pcdata).set_value(xmlText(script.stackTrace).c_str());
    }
  }

  static void appendFolder(pugi::xml_node node, const IterationRecord& iteration) {
    if (!iteration.folder.empty()) {
      const std::string text = "Results: " + xmlText(iteration.folder.generic_string());
      node.append_child("system-out").append_child(pugi::node_pcdata).set_value(text.c_str());
    }
  }

  /// Scripts that passed or never ran would let an iteration look as if nothing had happened.
  Totals appendSuiteOfProcess(pugi::xml_node root) const {
    pugi::xml_node node = root.append_child("testsuite");
    set(node, "name", "test process");
    Totals totals;
    for (const IterationRecord& iteration : run_.iterations) {
      if (isUnexplained(iteration)) {
        pugi::xml_node testCase = node.append_child("testcase");
        set(testCase, "classname", "test process");
        set(testCase, "name", titleOf(iteration));
        pugi::xml_node error = testCase.append_child("error");
        set(error, "message", xmlText(iteration.message));
        set(error, "type", std::string(nameOf(iteration.outcome)));
        appendFolder(testCase, iteration);
        totals.add({.tests = 1, .errors = 1});
      }
    }
    totals.write(node);
    return totals;
  }

  const RunRecord& run_;
};

}  // namespace

std::string junitDocument(const RunRecord& run) {
  return JUnitWriter(run).document();
}

}  // namespace quobrak::host
