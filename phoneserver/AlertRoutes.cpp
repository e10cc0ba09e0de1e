#include "phoneserver/AlertRoutes.h"

#include <string>

#include "phoneserver/Alerts.h"
#include "phoneserver/WireError.h"

namespace quobrak::phoneserver {

namespace {

using Binding = ServedPhone::Binding;

template <Binding BINDING>
JSONValue text(ServedPhone& served, const Call&) {
  return Alert::required(served, BINDING).text();
}

JSONValue buttons(ServedPhone& served, const Call&) {
  JSONValue::Array labels;
  for (const std::string& label : Alert::required(served, Binding::toSession).buttonLabels()) {
    labels.emplace_back(label);
  }
  return labels;
}

template <Binding BINDING>
JSONValue accept(ServedPhone& served, const Call& call) {
  const Alert alert = Alert::required(served, BINDING);
  if (const std::optional<std::string> name = call.arguments.optionalText("name")) {
    alert.press(*name);
  } else {
    alert.accept();
  }
  return {};
}

template <Binding BINDING>
JSONValue dismiss(ServedPhone& served, const Call& call) {
  const Alert alert = Alert::required(served, BINDING);
  if (const std::optional<std::string> name = call.arguments.optionalText("name")) {
    alert.press(*name);
  } else {
    alert.dismiss();
  }
  return {};
}

JSONValue type(ServedPhone& served, const Call& call) {
  call.arguments.typedText();
  Alert::required(served, Binding::toSession);
  throw WireError(WireErrorCode::unsupportedOperation, "the alert has no text field to type into");
}

constexpr Route ROUTES[] = {
    {"GET", "/alert/text", SessionNeed::session, text<Binding::toSession>},
    {"GET", "/alert/text", SessionNeed::none, text<Binding::none>},
    {"POST", "/alert/text", SessionNeed::session, type},
    {"GET", "/wda/alert/buttons", SessionNeed::session, buttons},
    {"POST", "/alert/accept", SessionNeed::session, accept<Binding::toSession>},
    {"POST", "/alert/accept", SessionNeed::none, accept<Binding::none>},
    {"POST", "/alert/dismiss", SessionNeed::session, dismiss<Binding::toSession>},
    {"POST", "/alert/dismiss", SessionNeed::none, dismiss<Binding::none>},
};

}  // namespace

std::span<const Route> alertRoutes() {
  return ROUTES;
}

}  // namespace quobrak::phoneserver
