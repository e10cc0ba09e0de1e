#include "drivers/webdriver/Lookups.h"

#include <algorithm>
#include <memory>
#include <utility>

#include "drivers/webdriver/CommandError.h"

namespace quobrak::webdriver {

namespace {

std::shared_ptr<const AlertHandle> alertIn(const QueryRoot& root) {
  return std::dynamic_pointer_cast<const AlertHandle>(std::get<std::shared_ptr<const ElementHandle>>(root));
}

std::optional<FoundElement> atIndex(const std::vector<FoundElement>& elements, std::size_t index) {
  return index < elements.size() ? std::optional(elements[index]) : std::nullopt;
}

}  // namespace

void Lookups::forget() {
  kept_.clear();
  applications_.forget();
}

void Lookups::lookInto(const QueryRoot& root) {
  const auto* const application = std::get_if<ApplicationRoot>(&root);
  session_.pin(application == nullptr ? SYSTEM_PROCESS : application->bundleIdentifier);
}

std::optional<Lookups::Start> Lookups::startOf(const QueryRoot& root) {
  if (const auto* const application = std::get_if<ApplicationRoot>(&root)) {
    const std::string& identifier = application->bundleIdentifier;
    return applications_.isInFront(identifier) ? std::optional(Start{.key = identifier, .element = ""}) : std::nullopt;
  }
  const std::shared_ptr<const AlertHandle> alert = alertIn(root);
  return alert == nullptr ? std::nullopt
                          : std::optional(Start{.key = SYSTEM_PROCESS + (' ' + alert->id()), .element = alert->id()});
}

std::vector<FoundElement> Lookups::all(const XCUIElementQuery& query) {
  const std::optional<Start> start = startOf(query.root());
  return start ? found(*start, chain_.of(query)) : std::vector<FoundElement>();
}

std::optional<FoundElement> Lookups::one(const XCUIElement& element) {
  if (!element.pick()) {
    return rootElement(element.query().root());
  }
  const std::optional<Start> start = startOf(element.query().root());
  if (!start) {
    return std::nullopt;
  }
  const std::string& chain = chain_.of(element.query());
  if (const auto kept = kept_.find(start->key + ' ' + chain); kept != kept_.end()) {
    return atIndex(kept->second, indexOf(*element.pick()));
  }
  // All of them may be a thousand, of which one is asked for.
  return atIndex(found(*start, pickedFrom(chain, *element.pick())), 0);
}

std::optional<FoundElement> Lookups::rootElement(const QueryRoot& root) {
  const std::optional<Start> start = startOf(root);
  if (!start) {
    return std::nullopt;
  }
  if (start->element.empty()) {
    const std::string key = start->key + " itself";
    auto kept = kept_.find(key);
    if (kept == kept_.end()) {
      session_.pin(start->key);
      // Chains lead below the application, a predicate meets it too.
      kept =
          kept_.emplace(key, find(predicateStrategy(session_.dialect()), "type == \"XCUIElementTypeApplication\"", ""))
              .first;
    }
    return atIndex(kept->second, 0);
  }
  const std::vector<FoundElement>& alerts = found({.key = SYSTEM_PROCESS, .element = ""}, "**/XCUIElementTypeAlert");
  const auto same =
      std::find_if(alerts.begin(), alerts.end(), [&](const FoundElement& alert) { return alert.id == start->element; });
  return same == alerts.end() ? std::nullopt : std::optional(*same);
}

std::optional<FoundElement> Lookups::systemAlert() {
  session_.pin(SYSTEM_PROCESS);
  // The last one lies in front of the others.
  return atIndex(find(classChainStrategy(session_.dialect()), "**/XCUIElementTypeAlert[-1]", ""), 0);
}

std::vector<FoundElement> Lookups::below(const FoundElement& element, ElementType type) {
  return find(classChainStrategy(session_.dialect()),
              classChain(XCUIElementQuery(ApplicationRoot{}).appending(DescendantsStep{type})), element.id);
}

const std::vector<FoundElement>& Lookups::found(const Start& start, const std::string& chain) {
  std::string key = start.key + ' ' + chain;
  if (const auto kept = kept_.find(key); kept != kept_.end()) {
    return kept->second;
  }
  if (start.element.empty()) {
    session_.pin(start.key);
  }
  return kept_.emplace(std::move(key), find(classChainStrategy(session_.dialect()), chain, start.element))
      .first->second;
}

std::vector<FoundElement> Lookups::find(std::string_view strategy, const std::string& value,
                                        const std::string& element) {
  std::vector<FoundElement> elements = foundElements(findOnce(strategy, value, element));
  if (elements.empty() && !isStillTheSameSession()) {
    elements = foundElements(findOnce(strategy, value, element));
  }
  return elements;
}

JSONValue Lookups::findOnce(std::string_view strategy, const std::string& value, const std::string& element) {
  try {
    return session_.ask(
        [&](const std::string& session) {
          return Command{.method = "POST",
                         .path = "/session/" + session + (element.empty() ? "" : "/element/" + element) + "/elements",
                         .body = {{"using", strategy}, {"value", value}}};
        },
        element.empty() ? Session::Names::nothing : Session::Names::anElement);
  } catch (const CommandError& error) {
    if (error.fault() != Fault::staleElement && error.fault() != Fault::noSuchElement) {
      throw;
    }
    // Nothing is below what is gone.
    return JSONValue::Array{};
  }
}

/// The Appium server says "not found" whatever went wrong beneath it, so what finds nothing proves nothing: another
/// command, which costs the phone little, has to tell.
bool Lookups::isStillTheSameSession() {
  if (session_.dialect() != Dialect::appium) {
    return true;
  }
  const int generation = session_.generation();
  session_.ask(
      [&](const std::string& session) { return commandFor(session_.dialect(), Verb::checkSession, session, {}); });
  return session_.generation() == generation;
}

}  // namespace quobrak::webdriver
