#include "drivers/simulator/ApplicationReader.h"

#include <optional>
#include <utility>

#include "drivers/simulator/PageSource.h"

namespace quobrak::simulator {

ApplicationReader::ApplicationReader(const PhoneFiles& files, std::string folder, const PhoneDescription& phone,
                                     DescriptionFaults& faults, RequireApplication requireApplication)
    : files_(files),
      folder_(std::move(folder)),
      phone_(phone),
      faults_(faults),
      requireApplication_(std::move(requireApplication)),
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
      for (const JSONReader& address : addresses->elements()) {
        application_.addresses.push_back(nonEmptyText(address));
      }
    }
  });
  file_.attempt([&] {
    if (const auto rules = json.optionalMember("rules")) {
      readRules(*rules);
    }
  });
}

void ApplicationReader::readRules(const JSONReader& json) {
  const RuleReferences references{
      .applicationName = application_.name,
      .opensAddresses = !application_.addresses.empty(),
      .values = phone_.values,
      .requireScreen = [this](const JSONReader& at,
                              const std::string& name) { requirePage(at, name, application_.screens); },
      .requireFragment = [this](const JSONReader& at,
                                const std::string& name) { requirePage(at, name, application_.fragments); },
      .requireApplication =
          [this](const JSONReader& at, const std::string& bundleIdentifier) {
            requireApplication_(file_, at, bundleIdentifier);
          }};
  RuleReader reader(file_, references);
  for (const JSONReader& rule : json.elements()) {
    file_.attempt([&] { application_.rules.push_back(reader.read(rule)); });
  }
}

void ApplicationReader::requirePage(const JSONReader& at, const std::string& name, Pages& pages) {
  if (pages.contains(name) || faultyPages_.contains(name)) {
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
    faultyPages_.insert(name);
    for (const PageSourceFault& fault : error.faults()) {
      faults_.add(files_.nameOf(path), TextPlace{.line = fault.line, .column = fault.column}, fault.reason);
    }
  }
}

}  // namespace quobrak::simulator
