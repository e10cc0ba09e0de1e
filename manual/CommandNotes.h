#pragma once

#include <vector>

#include "manual/CommandNote.h"

namespace quobrak::manual {

/// The notes on all commands, in the order of the command table.
std::vector<CommandGroup> commandNotes();

// The groups that they are made of.

CommandGroup applicationNotes();
CommandGroup browserNotes();
CommandGroup storeNotes();

CommandGroup tapNotes();
CommandGroup searchNotes();

CommandGroup measureNotes();
CommandGroup deviceNotes();

CommandGroup waitNotes();
CommandGroup waitThenTapNotes();

CommandGroup typingNotes();
CommandGroup scrollNotes();
CommandGroup swipeNotes();

}  // namespace quobrak::manual
