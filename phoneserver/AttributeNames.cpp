#include "phoneserver/AttributeNames.h"

#include <algorithm>
#include <array>
#include <string>

#include "phoneserver/WireError.h"

namespace quobrak::phoneserver {

namespace {

struct Row {
  std::string_view name;
  AttributeName attribute;
};

constexpr std::array ROWS{
    Row{"label", AttributeName::label},
    Row{"name", AttributeName::name},
    Row{"value", AttributeName::value},
    Row{"placeholderValue", AttributeName::placeholderValue},
    Row{"type", AttributeName::type},
    Row{"enabled", AttributeName::enabled},
    Row{"selected", AttributeName::selected},
    Row{"focused", AttributeName::focused},
    Row{"visible", AttributeName::visible},
    Row{"accessible", AttributeName::accessible},
    Row{"accessibilityContainer", AttributeName::accessibilityContainer},
    Row{"hittable", AttributeName::hittable},
    Row{"index", AttributeName::index},
    Row{"rect", AttributeName::rect},
    Row{"frame", AttributeName::frame},
    Row{"rect.x", AttributeName::rectX},
    Row{"rect.y", AttributeName::rectY},
    Row{"rect.width", AttributeName::rectWidth},
    Row{"rect.height", AttributeName::rectHeight},
};

/// Phones take "wdLabel" for "label".
bool isWithPrefix(std::string_view name, std::string_view row) {
  constexpr std::string_view PREFIX = "wd";
  constexpr char CASE = 'a' - 'A';
  return name.starts_with(PREFIX) && name.size() == PREFIX.size() + row.size() &&
         name[PREFIX.size()] == static_cast<char>(row.front() - CASE) &&
         name.substr(PREFIX.size() + 1) == row.substr(1);
}

}  // namespace

std::optional<AttributeName> attributeNamed(std::string_view name) {
  const auto found = std::find_if(ROWS.begin(), ROWS.end(),
                                  [name](const Row& row) { return row.name == name || isWithPrefix(name, row.name); });
  return found == ROWS.end() ? std::nullopt : std::optional(found->attribute);
}

AttributeName requiredAttribute(std::string_view name) {
  const std::optional<AttributeName> attribute = attributeNamed(name);
  if (!attribute) {
    std::string known;
    for (const Row& row : ROWS) {
      known += (known.empty() ? "" : ", ") + std::string(row.name);
    }
    throw WireError(WireErrorCode::unknownError,
                    "elements have no attribute \"" + std::string(name) + "\"; they have " + known);
  }
  return *attribute;
}

}  // namespace quobrak::phoneserver
