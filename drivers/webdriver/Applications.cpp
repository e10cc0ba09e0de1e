#include "drivers/webdriver/Applications.h"

#include "drivers/webdriver/CommandError.h"
#include "platform/uiautomation/Waiting.h"

namespace quobrak::webdriver {

namespace {

constexpr std::chrono::milliseconds POLL_INTERVAL(250);

JSONValue::Object named(const std::string& bundleIdentifier) {
  return {{"bundleId", bundleIdentifier}};
}

}  // namespace

void Applications::end(const std::string& bundleIdentifier) {
  // With it the whole phone would lose its screen.
  if (bundleIdentifier == SYSTEM_PROCESS) {
    return;
  }
  // Before the command: where that fails, nobody knows what it did.
  forget();
  if (front_ == bundleIdentifier) {
    front_.clear();
  }
  session_.act(
      [&](const std::string& session) {
        return commandFor(session_.dialect(), Verb::terminate, session, named(bundleIdentifier));
      },
      session_.limits().command);
}

void Applications::launch(const std::string& bundleIdentifier) {
  // To servers a launch of what runs brings it to the front as it is.
  end(bundleIdentifier);
  leave();
  session_.act(
      [&](const std::string& session) {
        return commandFor(session_.dialect(), Verb::launch, session, named(bundleIdentifier));
      },
      session_.limits().launch);
  const XCTWaiterResult result =
      waitUntil(clock_, session_.limits().launch, POLL_INTERVAL, [&] { return askWhetherInFront(bundleIdentifier); });
  if (result != XCTWaiterResult::completed) {
    throw CommandError(Fault::refused, "it was started, but did not come to the front");
  }
  front_ = bundleIdentifier;
  // The next look-up will be in it, and shall be one exchange.
  session_.pin(bundleIdentifier);
}

void Applications::terminate(const std::string& bundleIdentifier) {
  end(bundleIdentifier);
}

bool Applications::isInFront(const std::string& bundleIdentifier) {
  if (bundleIdentifier == front_) {
    return true;
  }
  const auto known = asked_.find(bundleIdentifier);
  if (known != asked_.end()) {
    return known->second;
  }
  return asked_.emplace(bundleIdentifier, askWhetherInFront(bundleIdentifier)).first->second;
}

bool Applications::askWhetherInFront(const std::string& bundleIdentifier) {
  // 0 unknown, 1 not running, 2 and 3 in the background, 4 in front.
  constexpr std::int64_t IN_FRONT = 4;
  const JSONValue state = session_.ask([&](const std::string& session) {
    return commandFor(session_.dialect(), Verb::applicationState, session, named(bundleIdentifier));
  });
  const auto* const number = std::get_if<std::int64_t>(&state.variant());
  if (number == nullptr) {
    throw CommandError(Fault::nonsense, "the state of an application is no number");
  }
  return *number == IN_FRONT;
}

}  // namespace quobrak::webdriver
