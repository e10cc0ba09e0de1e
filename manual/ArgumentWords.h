#pragma once

#include <string>
#include <string_view>

#include "quobrakUITests/CommandRow.h"

/// What a row of the command table says of its arguments, in words. They are Markdown, without a full stop.
namespace quobrak::manual {

/// How an argument is written: "whole number, milliseconds".
std::string_view writtenAs(Unit unit);

/// What stands in for an argument that is left out, or what comes of leaving it out.
std::string whenLeftOut(const ArgumentInfo& argument);

}  // namespace quobrak::manual
