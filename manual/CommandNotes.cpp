#include "manual/CommandNotes.h"

namespace quobrak::manual {

std::vector<CommandGroup> commandNotes() {
  return {applicationNotes(), browserNotes(), tapNotes(),         searchNotes(), storeNotes(),  measureNotes(),
          deviceNotes(),      waitNotes(),    waitThenTapNotes(), typingNotes(), scrollNotes(), swipeNotes()};
}

}  // namespace quobrak::manual
