#pragma once

#include <map>
#include <optional>
#include <string>
#include <vector>

#include "drivers/webdriver/Applications.h"
#include "drivers/webdriver/ClassChain.h"
#include "drivers/webdriver/FoundElement.h"
#include "drivers/webdriver/Session.h"
#include "platform/uiautomation/XCUIElement.h"

namespace quobrak::webdriver {

/// An alert of the system that a handler is asked about. One alert has one id.
class AlertHandle final : public ElementHandle {
 public:
  AlertHandle(std::string id, std::string label) : id_(std::move(id)), label_(std::move(label)) {}

  std::string description() const override { return "the system alert \"" + label_ + '"'; }
  const std::string& id() const { return id_; }

 private:
  std::string id_;
  std::string label_;
};

/// Finds elements, each with all that is asked of elements, in one exchange, and keeps what was found until it is told
/// to forget.
class Lookups {
 public:
  /// Both must outlive this object.
  Lookups(Session& session, Applications& applications) : session_(session), applications_(applications) {}

  /// All elements that the query finds. Throws `CommandError` and `UnaskableQuery`.
  std::vector<FoundElement> all(const XCUIElementQuery& query);

  /// None where the element is not there. Throws as `all` does.
  std::optional<FoundElement> one(const XCUIElement& element);

  /// The descendants of a found element that have that type. Throws `CommandError`.
  std::vector<FoundElement> below(const FoundElement& element, ElementType type);

  /// The alert of the system that is in front; none where none is up. Throws `CommandError`.
  std::optional<FoundElement> systemAlert();

  /// Makes the server look into the application that a query with that root asks. What was found before may still be
  /// kept, and then another application was perhaps looked into since. Throws `CommandError`.
  void lookInto(const QueryRoot& root);

  void forget();

 private:
  /// Where a query begins: in the application that is pinned, or at an element.
  struct Start {
    std::string key;
    /// Empty for the pinned application.
    std::string element;
  };

  std::optional<Start> startOf(const QueryRoot& root);
  std::optional<FoundElement> rootElement(const QueryRoot& root);
  const std::vector<FoundElement>& found(const Start& start, const std::string& chain);
  std::vector<FoundElement> find(std::string_view strategy, const std::string& value, const std::string& element);
  JSONValue findOnce(std::string_view strategy, const std::string& value, const std::string& element);
  bool isStillTheSameSession();

  Session& session_;
  Applications& applications_;
  LastClassChain chain_;
  std::map<std::string, std::vector<FoundElement>> kept_;
};

}  // namespace quobrak::webdriver
