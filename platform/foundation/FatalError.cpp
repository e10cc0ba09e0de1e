#include "platform/foundation/FatalError.h"

#include <cstdio>
#include <cstdlib>
#include <iostream>

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
  std::cout.flush();
  std::fflush(stdout);
  std::cerr << "Fatal error: " << message;
  if (innermostNote != nullptr) {
    std::cerr << " (line " << innermostNote->number_ << ": " << innermostNote->text_ << ')';
  }
  std::cerr << std::endl;
  std::abort();
}

}  // namespace quobrak
