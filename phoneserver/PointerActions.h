#pragma once

#include "phoneserver/Arguments.h"
#include "phoneserver/ServedPhone.h"

namespace quobrak::phoneserver {

/// Carries out what `actions` describes: input sources, each with its actions, which go on tick by tick. A finger (a
/// pointer of type "touch") moves, comes down, waits and lifts; keys are typed into what has the focus. The phone knows
/// one finger. Times are in milliseconds. A session must be open. Raises `WireError` "unknown error" for actions that
/// cannot be carried out, before any of them is.
void performActions(ServedPhone& served, const Arguments& arguments);

}  // namespace quobrak::phoneserver
