#include "host/report/LineMeaning.h"

#include <cstdint>
#include <vector>

#include "quobrakUITests/Device.h"
#include "quobrakUITests/Fields.h"
#include "quobrakUITests/Parameters.h"

namespace quobrak::host {

LineMeaning meaningOf(std::string_view line) {
  std::vector<std::string_view> fields;
  splitAtCommas(line, fields);
  LineMeaning meaning{
      .command = fields.front(), .pause = {}, .begunStep = {}, .endsStep = fields.front() == "measureStop"};
  if (fields.size() < 2) {
    return meaning;
  }
  if (meaning.command == "measureStart") {
    meaning.begunStep = fields[1];
  }
  if (meaning.command == "pause") {
    const std::optional<std::int64_t> duration = parseInteger(fields[1]);
    if (duration && !Device::pauseFault(*duration)) {
      meaning.pause = std::chrono::milliseconds(*duration);
    }
  }
  return meaning;
}

}  // namespace quobrak::host
