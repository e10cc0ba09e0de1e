#include "phoneserver/ApplicationRoutes.h"

#include <string>

#include "phoneserver/Applications.h"
#include "phoneserver/WireError.h"

namespace quobrak::phoneserver {

namespace {

std::string installedApplication(const ServedPhone& served, const Call& call) {
  std::string bundleIdentifier = call.arguments.text("bundleId");
  if (!served.phone().isInstalled(bundleIdentifier)) {
    throw WireError(WireErrorCode::unknownError, notInstalled(served, bundleIdentifier));
  }
  return bundleIdentifier;
}

JSONValue bringToFront(ServedPhone& served, const Call& call) {
  served.phone().activate(installedApplication(served, call));
  return {};
}

/// Whether it ran.
JSONValue terminate(ServedPhone& served, const Call& call) {
  const std::string bundleIdentifier = call.arguments.text("bundleId");
  const bool isRunning = served.phone().running(bundleIdentifier) != nullptr;
  const bool isHome = bundleIdentifier == served.phone().description().home;
  served.phone().terminate(bundleIdentifier);
  return isRunning && !isHome;
}

JSONValue state(ServedPhone& served, const Call& call) {
  return served.stateOf(call.arguments.text("bundleId"));
}

JSONValue::Object identityOf(const ServedPhone& served, const std::string& bundleIdentifier) {
  return {{"pid", served.phone().running(bundleIdentifier)->processIdentifier}, {"bundleId", bundleIdentifier}};
}

JSONValue running(ServedPhone& served, const Call&) {
  return JSONValue::Array{identityOf(served, served.activeApplication())};
}

JSONValue informationOf(const ServedPhone& served, const std::string& bundleIdentifier) {
  JSONValue::Object information = identityOf(served, bundleIdentifier);
  information.emplace("name", served.phone().description().applications.at(bundleIdentifier).name);
  information.emplace("processArguments",
                      JSONValue::Object{{"args", JSONValue::Array()}, {"env", JSONValue::Object()}});
  return information;
}

JSONValue activeInformation(ServedPhone& served, const Call&) {
  return informationOf(served, served.activeApplication());
}

JSONValue detectedInformation(ServedPhone& served, const Call&) {
  return informationOf(served, served.activeApplication(ServedPhone::Binding::none));
}

JSONValue goHome(ServedPhone& served, const Call&) {
  served.phone().pressHome();
  return {};
}

constexpr Route ROUTES[] = {
    {"POST", "/wda/apps/launch", SessionNeed::session, bringToFront},
    {"POST", "/wda/apps/activate", SessionNeed::session, bringToFront},
    {"POST", "/wda/apps/terminate", SessionNeed::session, terminate},
    {"POST", "/wda/apps/state", SessionNeed::session, state},
    {"GET", "/wda/apps/list", SessionNeed::session, running},
    {"GET", "/wda/activeAppInfo", SessionNeed::session, activeInformation},
    {"GET", "/wda/activeAppInfo", SessionNeed::none, detectedInformation},
    {"POST", "/wda/homescreen", SessionNeed::session, goHome},
    {"POST", "/wda/homescreen", SessionNeed::none, goHome},
};

}  // namespace

std::span<const Route> applicationRoutes() {
  return ROUTES;
}

}  // namespace quobrak::phoneserver
