#include "host/commands/CommandDocument.h"

#include <gtest/gtest.h>

#include <array>
#include <string>

namespace quobrak::host {
namespace {

using Text = DirectField<1, "text">;
using Period = CheckedField<&Parameters::getPeriod, 2, "period", Unit::milliseconds, DEFAULT_ENTER_TEXT_FREQUENCY>;
using IsEnabled = CheckedField<&Parameters::getIsEnabled, 3, "isEnabled", Unit::truthValue, DEFAULT_IS_ENABLED>;
using X = DirectField<1, "x", Unit::points>;
using Percent = CheckedField<&Parameters::getCoordinate, 2, "y", Unit::percent>;
using Rank = CheckedField<&Parameters::getNthElement, 3, "rank", Unit::count, DEFAULT_NTH_ELEMENT>;

void operate(const std::string&, std::int64_t, bool) {}
void operateAt(const std::string&, std::int64_t, std::int64_t) {}
void operateAlone() {}

constexpr std::array TABLE{command<&operate, Text, Period, IsEnabled>("type", "Types."),
                           command<&operateAt, X, Percent, Rank>("point", "Points."),
                           command<&operateAlone>("rest", "Rests.")};

const manual::CommandNote TYPE{.name = "type",
                               .description = "Slowly.",
                               .arguments = {"what", "how `slowly`", "whether"},
                               .errors = {{.message = "No <text>", .when = "there is none"}},
                               .stops = {{.message = "Too slow", .when = "`period` is too much"}},
                               .example = "type,a\ntype,b"};
const manual::CommandNote POINT{.name = "point",
                                .description = "",
                                .arguments = {"across", "down", "which"},
                                .errors = {},
                                .stops = {},
                                .example = "point,1,2"};
const manual::CommandNote REST{
    .name = "rest", .description = "", .arguments = {}, .errors = {}, .stops = {}, .example = "rest"};

std::string documentOf(const std::vector<manual::CommandGroup>& groups) {
  return JSONEncoder::encode(commandDocument(manual::describedCommands(TABLE, groups)));
}

TEST(CommandDocument, HasAllThatIsKnownOfCommands) {
  EXPECT_EQ(documentOf({{.title = "Work", .introduction = "What is *done*.", .notes = {TYPE, POINT}},
                        {.title = "Other", .introduction = "", .notes = {REST}}}),
            JSONEncoder::encode(JSONDecoder::decode(R"({
  "commands": [
    {
      "arguments": [
        {"label": "text", "reading": "direct", "required": true, "unit": "text", "what": "what"},
        {
          "default": 0,
          "label": "period",
          "reading": "checked",
          "required": false,
          "unit": "milliseconds",
          "what": "how `slowly`"
        },
        {
          "default": true,
          "label": "isEnabled",
          "reading": "checked",
          "required": false,
          "unit": "truthValue",
          "what": "whether"
        }
      ],
      "description": "Slowly.",
      "errors": [
        {"message": "The frequency <period> should be an integer", "when": "`period` is not a whole number"},
        {
          "message": "isEnabled <isEnabled> should be an boolean",
          "when": "`isEnabled` is neither `true` nor `false`"
        },
        {"message": "No <text>", "when": "there is none"}
      ],
      "example": "type,a\ntype,b",
      "group": "Work",
      "name": "type",
      "stops": [
        {"message": "Index out of range: the field 1 (text) is missing", "when": "`text` is left out"},
        {"message": "Too slow", "when": "`period` is too much"}
      ],
      "summary": "Types.",
      "usage": "type,text[,period[,isEnabled]]"
    },
    {
      "arguments": [
        {"label": "x", "reading": "direct", "required": true, "unit": "points", "what": "across"},
        {"label": "y", "reading": "checked", "required": true, "unit": "percent", "what": "down"},
        {
          "default": 1,
          "label": "rank",
          "reading": "checked",
          "required": false,
          "unit": "count",
          "what": "which"
        }
      ],
      "description": "",
      "errors": [
        {"message": "A coordinate is missing", "when": "`y` is left out"},
        {"message": "The coordinate <y> should be an integer", "when": "`y` is not a whole number"},
        {"message": "nthElement <rank> should be an integer", "when": "`rank` is not a whole number"}
      ],
      "example": "point,1,2",
      "group": "Work",
      "name": "point",
      "stops": [{"message": "Index out of range: the field 1 (x) is missing", "when": "`x` is left out"}],
      "summary": "Points.",
      "usage": "point,x,y[,rank]"
    },
    {
      "arguments": [],
      "description": "",
      "errors": [],
      "example": "rest",
      "group": "Other",
      "name": "rest",
      "stops": [],
      "summary": "Rests.",
      "usage": "rest"
    }
  ],
  "groups": [{"introduction": "What is *done*.", "title": "Work"}, {"introduction": "", "title": "Other"}]
})")));
}

TEST(CommandDocument, GroupsWithoutCommandsAreLeftOut) {
  EXPECT_EQ(JSONEncoder::encode(commandDocument({{.title = "Work", .introduction = "", .commands = {}}})),
            R"({"commands":[],"groups":[]})");
}

}  // namespace
}  // namespace quobrak::host
