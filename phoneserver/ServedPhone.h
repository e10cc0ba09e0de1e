#pragma once

#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "drivers/simulator/Phone.h"
#include "drivers/simulator/ScreenPainter.h"
#include "phoneserver/SessionState.h"
#include "platform/foundation/Clock.h"

namespace quobrak::phoneserver {

/// The phone that is served, the session that is open on it, and what handlers of requests ask of both.
class ServedPhone {
 public:
  /// `clock` must outlive it.
  ServedPhone(simulator::PhoneDescription description, Clock& clock);

  simulator::Phone& phone() { return phone_; }
  const simulator::Phone& phone() const { return phone_; }
  Clock& clock() const { return clock_; }

  /// None where no session is open.
  std::optional<SessionState>& session() { return session_; }
  const std::optional<SessionState>& session() const { return session_; }

  /// The application of that bundle identifier in the state that the protocol counts: 1 does not run, 3 in the
  /// background, 4 in front. The home application counts as in front at all times.
  int stateOf(const std::string& bundleIdentifier) const;

  /// The application whose elements are on the screen on top of all others: the home application while an alert of the
  /// system is up, else the one in front.
  std::string detectedApplication() const;

  /// Whether a request goes by the settings of the session.
  enum class Binding { toSession, none };

  /// The application that queries look into. Where the session decides: the one that its setting
  /// `defaultActiveApplication` names, or else the one that it was opened for, as long as it is in front; the latter
  /// not while an alert of the system is up that the setting `respectSystemAlerts` lets through. Otherwise the one that
  /// is detected.
  std::string activeApplication(Binding binding = Binding::toSession) const;

  /// The tree of a running application.
  const simulator::Element& screenOf(const std::string& bundleIdentifier) const;
  const simulator::Element& activeScreen(Binding binding = Binding::toSession) const;

  /// The element of that number in any running application; null where it is gone.
  const simulator::Element* elementNumbered(std::uint64_t number) const;

  /// Whether the element is part of what the screen shows: some of it lies on the screen and within all that clips it.
  /// What covers it does not count.
  bool isVisible(const simulator::Element& element) const;
  /// Whether a touch at its hit point would land on it.
  bool isHittable(const simulator::Element& element) const;

  /// The picture of the screen as PNG in base64. Raises `WireError` where none can be made.
  const std::string& screenshot();

 private:
  bool isShown(const simulator::Element& element) const;

  Clock& clock_;
  simulator::Phone phone_;
  simulator::ScreenPainter painter_;
  std::optional<SessionState> session_;

  /// The last picture, and what it shows.
  std::optional<std::string> picture_;
  std::uint64_t pictureRevision_ = 0;
};

}  // namespace quobrak::phoneserver
