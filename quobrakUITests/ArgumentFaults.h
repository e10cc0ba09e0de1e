#pragma once

#include <cstddef>
#include <optional>

#include "quobrakUITests/CommandRow.h"

/// What commands mind of values that can be read (see `ArgumentInfo::fault`), each from where the command has it.
namespace quobrak {

/// A bundle identifier that stands for no application.
std::optional<ValueFault> bundleIdFault(FunctionParameters fields, std::size_t field);

/// A pattern that does not compile.
std::optional<ValueFault> patternFault(FunctionParameters fields, std::size_t field);

std::optional<ValueFault> classNameFault(FunctionParameters fields, std::size_t field);

std::optional<ValueFault> rankFault(FunctionParameters fields, std::size_t field);

std::optional<ValueFault> pauseFault(FunctionParameters fields, std::size_t field);

/// A pause behind each character of the text that is in the field before it.
std::optional<ValueFault> typingPauseFault(FunctionParameters fields, std::size_t field);

/// Less than one swipe, or more than are ever made.
std::optional<ValueFault> swipeCountFault(FunctionParameters fields, std::size_t field);

/// A place outside the screen.
std::optional<ValueFault> percentFault(FunctionParameters fields, std::size_t field);

/// A distance that is no number.
std::optional<ValueFault> distanceFault(FunctionParameters fields, std::size_t field);

}  // namespace quobrak
