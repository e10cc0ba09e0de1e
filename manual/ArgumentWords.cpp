#include "manual/ArgumentWords.h"

#include <cstdint>
#include <variant>

#include "manual/Markdown.h"

namespace quobrak::manual {

std::string_view writtenAs(Unit unit) {
  switch (unit) {
    case Unit::text:
      return "text";
    case Unit::milliseconds:
      return "whole number, milliseconds";
    case Unit::percent:
      return "whole number, percent of the screen";
    case Unit::points:
      return "number, points";
    case Unit::count:
      return "whole number";
    case Unit::truthValue:
      return "`true` or `false`";
  }
  return "";
}

std::string whenLeftOut(const ArgumentInfo& argument) {
  struct InWords {
    std::string operator()(std::monostate) const { return reading == Reading::direct ? "stops the process" : "error"; }
    std::string operator()(std::int64_t number) const { return inCode(std::to_string(number)); }
    std::string operator()(bool truth) const { return truth ? "`true`" : "`false`"; }
    Reading reading;
  };
  return std::visit(InWords{argument.reading}, argument.defaultValue);
}

}  // namespace quobrak::manual
