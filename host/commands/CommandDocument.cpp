#include "host/commands/CommandDocument.h"

#include <cstdint>
#include <utility>
#include <variant>

#include "manual/ArgumentWords.h"

namespace quobrak::host {

namespace {

std::string_view nameOf(Unit unit) {
  switch (unit) {
    case Unit::text:
      return "text";
    case Unit::milliseconds:
      return "milliseconds";
    case Unit::percent:
      return "percent";
    case Unit::points:
      return "points";
    case Unit::count:
      return "count";
    case Unit::truthValue:
      return "truthValue";
  }
  return "";
}

JSONValue::Object argumentDocument(const ArgumentInfo& argument, const std::string& what) {
  JSONValue::Object document{{"label", argument.label},
                             {"what", what},
                             {"unit", nameOf(argument.unit)},
                             {"required", !mayBeLeftOut(argument)},
                             {"reading", argument.reading == Reading::direct ? "direct" : "checked"}};
  if (const auto* const number = std::get_if<std::int64_t>(&argument.defaultValue)) {
    document.emplace("default", *number);
  } else if (const auto* const truth = std::get_if<bool>(&argument.defaultValue)) {
    document.emplace("default", *truth);
  }
  return document;
}

JSONValue::Array failureDocuments(const std::vector<manual::Failure>& failures) {
  JSONValue::Array documents;
  for (const manual::Failure& failure : failures) {
    documents.emplace_back(JSONValue::Object{{"message", failure.message}, {"when", failure.when}});
  }
  return documents;
}

JSONValue::Object commandDocument(const manual::DescribedCommand& command, const std::string& group) {
  const auto& [row, note] = command;
  JSONValue::Array arguments;
  for (std::size_t i = 0; i < note.arguments.size(); ++i) {
    arguments.emplace_back(argumentDocument(row.arguments()[i], note.arguments[i]));
  }
  return {{"name", row.name},
          {"group", group},
          {"usage", usageOf(row)},
          {"summary", row.summary},
          {"description", note.description},
          {"arguments", std::move(arguments)},
          {"errors", failureDocuments(manual::errorsOf(row, note))},
          {"stops", failureDocuments(manual::stopsOf(row, note))},
          {"example", note.example}};
}

}  // namespace

JSONValue commandDocument(const std::vector<manual::DescribedGroup>& groups) {
  JSONValue::Array groupDocuments;
  JSONValue::Array commands;
  for (const manual::DescribedGroup& group : groups) {
    if (group.commands.empty()) {
      continue;
    }
    groupDocuments.emplace_back(JSONValue::Object{{"title", group.title}, {"introduction", group.introduction}});
    for (const manual::DescribedCommand& command : group.commands) {
      commands.emplace_back(commandDocument(command, group.title));
    }
  }
  return JSONValue::Object{{"groups", std::move(groupDocuments)}, {"commands", std::move(commands)}};
}

}  // namespace quobrak::host
