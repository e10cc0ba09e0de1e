#include "drivers/simulator/ApplicationReader.h"

#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "drivers/simulator/PageSource.h"

namespace quobrak::simulator {

ApplicationReader::ApplicationReader(const PhoneFiles& files, std::string folder, const PhoneDescription& phone,
                                     DescriptionFaults& faults, const PhoneReferences& references)
    : files_(files),
      folder_(std::move(folder)),
      phone_(phone),
      faults_(faults),
      references_(references),
      file_(files, folder_ + "/app.json", faults) {}

ApplicationDescription ApplicationReader::read() {
  if (const std::optional<JSONReader> content = file_.content()) {
    file_.attempt([&] { readContent(*content); });
  }
  return std::move(application_);
}

void ApplicationReader::readContent(const JSONReader& json) {
  file_.requireKnownKeys(json,
                         {"$schema", "bundleIdentifier", "name", "launchTime", "firstScreen", "addresses", "rules"});
  file_.attempt([&] { requireTextIfAny(json, "$schema"); });
  file_.attempt([&] { application_.bundleIdentifier = nonEmptyText(json.member("bundleIdentifier")); });
  file_.attempt([&] { application_.name = nonEmptyText(json.member("name")); });
  file_.attempt([&] {
    if (const auto launchTime = json.optionalMember("launchTime")) {
      application_.launchTime = readDuration(*launchTime);
    }
  });
  file_.attempt([&] {
    const JSONReader screen = json.member("firstScreen");
    application_.firstScreen = nonEmptyText(screen);
    requirePage(screen, application_.firstScreen, application_.screens);
  });
  file_.attempt([&] {
    if (const auto addresses = json.optionalMember("addresses")) {
      readAddresses(*addresses);
    }
  });
  file_.attempt([&] {
    if (const auto rules = json.optionalMember("rules")) {
      readRules(*rules);
    }
  });
}

void ApplicationReader::readAddresses(const JSONReader& json) {
  opensAddresses_ = true;
  const std::vector<JSONReader> addresses = json.elements();
  opensAddresses_ = !addresses.empty();
  for (const JSONReader& address : addresses) {
    file_.attempt([&] {
      std::string text = nonEmptyText(address);
      references_.claimAddress(file_, address, text);
      application_.addresses.push_back(std::move(text));
    });
  }
}

void ApplicationReader::readRules(const JSONReader& json) {
  const RuleReferences references{
      .applicationName = application_.name,
      .opensAddresses = opensAddresses_,
      .values = phone_.values,
      .requireScreen = [this](const JSONReader& at,
                              const std::string& name) { requirePage(at, name, application_.screens); },
      .requireFragment = [this](const JSONReader& at,
                                const std::string& name) { requirePage(at, name, application_.fragments); },
      .requireApplication =
          [this](const JSONReader& at, const std::string& bundleIdentifier) {
            references_.requireApplication(file_, at, bundleIdentifier);
          }};
  RuleReader reader(file_, references);
  for (const JSONReader& rule : json.elements()) {
    file_.attempt([&] { application_.rules.push_back(reader.read(rule)); });
  }
}

void ApplicationReader::requirePage(const JSONReader& at, const std::string& name, Pages& pages) {
  if (pages.contains(name)) {
    return;
  }
  const std::string path = folder_ + "/" + name + ".xml";
  const std::optional<std::string> xml = files_.read(path);
  if (!xml) {
    at.fail("there is no page \"" + name + "\": " + files_.nameOf(path) + " is missing or cannot be read");
  }
  try {
    pages.emplace(name, readPageSource(*xml, phone_.size));
  } catch (const PageSourceError& error) {
    for (const PageSourceFault& fault : error.faults()) {
      faults_.add(files_.nameOf(path), TextPlace{.line = fault.line, .column = fault.column}, fault.reason);
    }
    if (error.unlisted() > 0) {
      const PageSourceFault& last = error.faults().back();
      faults_.add(files_.nameOf(path), TextPlace{.line = last.line, .column = last.column},
                  "and " + std::to_string(error.unlisted()) + " more behind it");
    }
  }
}

}  // namespace quobrak::simulator
