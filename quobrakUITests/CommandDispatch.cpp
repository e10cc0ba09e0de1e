#include "quobrakUITests/CommandDispatch.h"

#include <algorithm>

#include "quobrakUITests/FWKTError.h"

namespace quobrak {

std::string unknownCommandMessage(std::string_view name) {
  return "Function " + std::string(name) + " is not implemented";
}

void dispatchCommand(std::span<const CommandRow> table, FunctionParameters fields) {
  if (fields.empty()) {
    fatalError("Index out of range: a command without fields");
  }
  const auto row = std::find_if(table.begin(), table.end(),
                                [name = fields[0]](const CommandRow& candidate) { return candidate.name == name; });
  if (row == table.end()) {
    throw FWKTError::fdslError(unknownCommandMessage(fields[0]));
  }
  row->run(fields);
}

}  // namespace quobrak
