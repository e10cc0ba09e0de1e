#include "phoneserver/SessionRoutes.h"

#include <optional>
#include <string>
#include <utility>

#include "phoneserver/Applications.h"
#include "phoneserver/Base64.h"
#include "phoneserver/ClassChain.h"
#include "phoneserver/WireError.h"

namespace quobrak::phoneserver {

namespace {

constexpr std::string_view VENDOR_PREFIX = "appium:";

void mergeCapabilities(JSONValue::Object& capabilities, const JSONValue::Object& more) {
  for (const auto& [name, value] : more) {
    const bool hasPrefix = std::string_view(name).starts_with(VENDOR_PREFIX);
    capabilities.insert_or_assign(hasPrefix ? name.substr(VENDOR_PREFIX.size()) : name, value);
  }
}

/// What is always wanted, and the first of the alternatives.
JSONValue::Object wantedCapabilities(const Arguments& arguments) {
  const std::optional<JSONValue::Object> sent = arguments.optionalObject("capabilities");
  if (!sent) {
    throw WireError(WireErrorCode::sessionNotCreated,
                    "\"capabilities\" is missing; it must be an object, such as {\"alwaysMatch\": {}}");
  }
  const Arguments groups(*sent);
  JSONValue::Object capabilities;
  if (const auto alternatives = groups.optionalArray("firstMatch"); alternatives && !alternatives->empty()) {
    mergeCapabilities(
        capabilities,
        Arguments({{"firstMatch", alternatives->front()}}).optionalObject("firstMatch").value_or(JSONValue::Object()));
  }
  mergeCapabilities(capabilities, groups.optionalObject("alwaysMatch").value_or(JSONValue::Object()));
  return capabilities;
}

void endSession(ServedPhone& served) {
  const std::optional<SessionState> ended = std::exchange(served.session(), std::nullopt);
  if (ended && ended->application && ended->endsApplication) {
    served.phone().terminate(*ended->application);
  }
}

void openApplication(ServedPhone& served, const std::string& bundleIdentifier, bool restarts) {
  if (!served.phone().isInstalled(bundleIdentifier)) {
    throw WireError(WireErrorCode::sessionNotCreated, notInstalled(served, bundleIdentifier));
  }
  if (restarts) {
    served.phone().launch(bundleIdentifier);
  } else {
    served.phone().activate(bundleIdentifier);
  }
}

JSONValue sessionReply(const ServedPhone& served) {
  const SessionState& session = *served.session();
  const std::string application = session.application.value_or(served.activeApplication());
  const simulator::PhoneDescription& description = served.phone().description();
  return JSONValue::Object{
      {"sessionId", session.id},
      {"capabilities", JSONValue::Object{{"device", "iphone"},
                                         {"browserName", description.applications.at(application).name},
                                         {"CFBundleIdentifier", application},
                                         {"sdkVersion", description.systemVersion}}}};
}

SessionState sessionFor(JSONValue::Object capabilities) {
  const Arguments wanted(capabilities);
  SessionState session{.id = randomIdentifier(),
                       .capabilities = std::move(capabilities),
                       .application = wanted.optionalText("bundleId"),
                       .endsApplication = wanted.optionalTruth("shouldTerminateApp").value_or(true)};
  // Some settings may be wanted from the beginning on.
  session.settings.update(session.capabilities);
  return session;
}

JSONValue openSession(ServedPhone& served, const Call& call) {
  std::optional<SessionState> opened;
  bool restarts = true;
  try {
    opened = sessionFor(wantedCapabilities(call.arguments));
    restarts = Arguments(opened->capabilities).optionalTruth("forceAppLaunch").value_or(restarts);
  } catch (const WireError& error) {
    throw WireError(WireErrorCode::sessionNotCreated, error.what());
  }
  endSession(served);
  if (opened->application) {
    openApplication(served, *opened->application, restarts);
  }
  served.session() = std::move(opened);
  return sessionReply(served);
}

JSONValue session(ServedPhone& served, const Call&) {
  return sessionReply(served);
}

JSONValue closeSession(ServedPhone& served, const Call&) {
  endSession(served);
  return {};
}

JSONValue settings(ServedPhone& served, const Call&) {
  return served.session()->settings.all();
}

void requireUsableSelectors(const JSONValue::Object& changes) {
  for (const char* const name : {"acceptAlertButtonSelector", "autoClickAlertSelector", "dismissAlertButtonSelector"}) {
    const std::string selector = Arguments(changes).optionalText(name).value_or("");
    if (!selector.empty()) {
      readClassChain(selector);
    }
  }
}

JSONValue updateSettings(ServedPhone& served, const Call& call) {
  const std::optional<JSONValue::Object> changes = call.arguments.optionalObject("settings");
  if (!changes) {
    throw WireError(WireErrorCode::invalidArgument, "\"settings\" is missing; it must be an object");
  }
  requireUsableSelectors(*changes);
  served.session()->settings.update(*changes);
  return served.session()->settings.all();
}

JSONValue status(ServedPhone& served, const Call&) {
  const std::string& version = served.phone().description().systemVersion;
  return JSONValue::Object{{"ready", true},
                           {"state", "success"},
                           {"message", "The phone is ready to accept commands"},
                           {"os", JSONValue::Object{{"name", "iOS"}, {"version", version}, {"sdkVersion", version}}},
                           {"ios", JSONValue::Object{{"ip", "127.0.0.1"}, {"simulatorVersion", version}}},
                           {"build", JSONValue::Object{{"productBundleIdentifier", "simulated"}, {"version", "1.0"}}},
                           {"device", "iphone"}};
}

/// There is nothing to wait for on this side: clients poll.
JSONValue timeouts(ServedPhone&, const Call&) {
  return {};
}

constexpr Route ROUTES[] = {
    {"GET", "/status", SessionNeed::none, status},
    {"GET", "/status", SessionNeed::session, status},
    {"POST", "/session", SessionNeed::none, openSession},
    {"GET", "", SessionNeed::session, session},
    {"DELETE", "", SessionNeed::session, closeSession},
    {"GET", "/appium/settings", SessionNeed::session, settings},
    {"POST", "/appium/settings", SessionNeed::session, updateSettings},
    {"POST", "/timeouts", SessionNeed::session, timeouts},
};

}  // namespace

std::span<const Route> sessionRoutes() {
  return ROUTES;
}

}  // namespace quobrak::phoneserver
