#include "fuzz/support/FatalStop.h"

#include "platform/foundation/FatalError.h"

// Takes the place of the platform's own unit, of which it must define all: a program links what its objects define
// before it looks into libraries.
namespace quobrak {

namespace {

const ScriptLineNote* innermostNote = nullptr;

}  // namespace

ScriptLineNote::ScriptLineNote(std::size_t number, std::string_view text)
    : number_(number), text_(text), outer_(innermostNote) {
  innermostNote = this;
}

ScriptLineNote::~ScriptLineNote() {
  innermostNote = outer_;
}

void fatalError(std::string_view message) {
  const ScriptLineNote* const note = innermostNote;
  throw fuzz::FatalStop{.message = std::string(message),
                        .lineNumber = note == nullptr ? 0 : note->number_,
                        .line = note == nullptr ? "" : std::string(note->text_)};
}

}  // namespace quobrak
