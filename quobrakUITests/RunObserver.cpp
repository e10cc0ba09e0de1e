#include "quobrakUITests/RunObserver.h"

namespace quobrak {

namespace {

RunObserver* installedObserver = nullptr;

}  // namespace

RunObserver* RunObserver::installed() {
  return installedObserver;
}

void RunObserver::install(RunObserver* observer) {
  installedObserver = observer;
}

}  // namespace quobrak
