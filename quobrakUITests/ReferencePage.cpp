#include "quobrakUITests/ReferencePage.h"

#include <utility>

#include "platform/foundation/NSRegularExpression.h"

namespace quobrak {

namespace {

ReferencePage& sharedPage() {
  static ReferencePage page;
  return page;
}

}  // namespace

std::optional<ReferencePage> ReferencePage::at(std::string_view address) {
  // A name or an IPv4 address, or an IPv6 address in brackets.
  const std::string host = R"(([A-Za-z0-9-]+(\.[A-Za-z0-9-]+)*|\[[0-9A-Fa-f:.]+\]))";
  const std::string port = "(:[0-9]+)?";
  if (!NSRegularExpression("https://" + host + port + R"(/black/index\.html)").matchesWhole(address)) {
    return std::nullopt;
  }
  ReferencePage page;
  page.address_ = address;
  return page;
}

const ReferencePage& ReferencePage::shared() {
  return sharedPage();
}

void ReferencePage::install(ReferencePage page) {
  sharedPage() = std::move(page);
}

}  // namespace quobrak
