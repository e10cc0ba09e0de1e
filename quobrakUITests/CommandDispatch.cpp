#include "quobrakUITests/CommandDispatch.h"

#include <algorithm>

#include "quobrakUITests/FWKTError.h"

namespace quobrak {

void dispatchCommand(std::span<const CommandRow> table, FunctionParameters fields) {
  if (fields.empty()) {
    fatalError("Index out of range: a command without fields");
  }
  const auto row = std::find_if(table.begin(), table.end(),
                                [name = fields[0]](const CommandRow& candidate) { return candidate.name == name; });
  if (row == table.end()) {
    throw FWKTError::fdslError("Function " + std::string(fields[0]) + " is not implemented");
  }
  row->run(fields);
}

}  // namespace quobrak
