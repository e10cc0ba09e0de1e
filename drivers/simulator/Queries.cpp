#include "drivers/simulator/Queries.h"

#include <string>
#include <unordered_set>
#include <variant>

namespace quobrak::simulator {

namespace {

using Elements = std::vector<const Element*>;
using Value = KeyValueSource::Value;

Value valueOf(const std::optional<std::string>& text) {
  return text ? Value(std::string_view(*text)) : Value();
}

struct Attribute {
  std::string_view key;
  Value (*of)(const Element& element);
  /// What an absent element has.
  Value whereAbsent;
};

const Attribute ATTRIBUTES[] = {
    {"label", [](const Element& element) { return Value(std::string_view(element.label)); }, std::string_view()},
    {"identifier", [](const Element& element) { return Value(std::string_view(element.identifier)); },
     std::string_view()},
    {"placeholderValue", [](const Element& element) { return valueOf(element.placeholder); }, {}},
    {"value", [](const Element& element) { return valueOf(element.value); }, {}},
    {"enabled", [](const Element& element) { return Value(element.isEnabled); }, false},
    {"selected", [](const Element& element) { return Value(element.isSelected); }, false},
    {"exists", [](const Element&) { return Value(true); }, false},
};

/// Applies one step to the elements found so far.
class StepApplication {
 public:
  StepApplication(const Elements& found, const std::function<bool(const Element&)>& isHittable)
      : found_(found), isHittable_(isHittable) {}

  Elements operator()(const DescendantsStep& step) const {
    Elements kept;
    std::unordered_set<const Element*> walked;
    for (const Element* root : found_) {
      // What lies within an element that was walked already has been seen.
      if (walked.contains(root)) {
        continue;
      }
      forEachDescendant(*root, [&](const Element& element) {
        if (found_.size() > 1) {
          walked.insert(&element);
        }
        if (step.type == ElementType::any || element.type == step.type) {
          kept.push_back(&element);
        }
      });
    }
    return kept;
  }

  Elements operator()(const MatchingPredicateStep& step) const {
    const PredicateEvaluator evaluator(step.predicate);
    return keptIf([&](const Element& element) { return evaluator.evaluate(ElementAttributes(&element, isHittable_)); });
  }

  Elements operator()(const MatchingIdentifierStep& step) const {
    return keptIf([&](const Element& element) {
      return element.identifier == step.identifier || element.label == step.identifier;
    });
  }

  Elements operator()(const ElementPick& pick) const {
    const auto* const atIndex = std::get_if<AtIndex>(&pick);
    const std::size_t index = atIndex == nullptr ? 0 : atIndex->index;
    return index < found_.size() ? Elements{found_[index]} : Elements{};
  }

 private:
  template <class Condition>
  Elements keptIf(Condition condition) const {
    Elements kept;
    for (const Element* element : found_) {
      if (condition(*element)) {
        kept.push_back(element);
      }
    }
    return kept;
  }

  const Elements& found_;
  const std::function<bool(const Element&)>& isHittable_;
};

}  // namespace

KeyValueSource::Value ElementAttributes::valueForKey(std::string_view key) const {
  if (key == "hittable") {
    return element_ != nullptr && isHittable_(*element_);
  }
  for (const Attribute& attribute : ATTRIBUTES) {
    if (attribute.key == key) {
      return element_ == nullptr ? attribute.whereAbsent : attribute.of(*element_);
    }
  }
  std::string known;
  for (const Attribute& attribute : ATTRIBUTES) {
    known += std::string(attribute.key) + ", ";
  }
  throw UnknownAttributeError("elements have no attribute \"" + std::string(key) + "\"; they have " + known +
                              "hittable");
}

void requireKnownAttributes(const NSPredicate& predicate) {
  if (const auto* const compound = std::get_if<NSPredicate::Compound>(&predicate.node())) {
    for (const NSPredicate& part : compound->parts) {
      requireKnownAttributes(part);
    }
    return;
  }
  const auto& comparison = std::get<NSPredicate::Comparison>(predicate.node());
  const std::function<bool(const Element&)> never = [](const Element&) { return false; };
  const ElementAttributes absent(nullptr, never);
  for (const NSPredicate::Operand* const operand : {&comparison.left, &comparison.right}) {
    if (const auto* const keyPath = std::get_if<NSPredicate::KeyPath>(operand)) {
      absent.valueForKey(keyPath->name);
    }
  }
}

Elements QueryEvaluator::elements(const XCUIElementQuery& query, const Element& root) const {
  Elements found{&root};
  for (const QueryStep& step : query.steps()) {
    found = std::visit(StepApplication(found, isHittable_), step);
  }
  return found;
}

const Element* QueryEvaluator::element(const XCUIElement& element, const Element& root) const {
  Elements found = elements(element.query(), root);
  if (element.pick()) {
    found = StepApplication(found, isHittable_)(*element.pick());
  }
  return found.empty() ? nullptr : found.front();
}

std::vector<Elements> QueryEvaluator::stages(const XCUIElement& element, const Element& root) const {
  std::vector<Elements> stages{{&root}};
  for (const QueryStep& step : element.query().steps()) {
    stages.push_back(std::visit(StepApplication(stages.back(), isHittable_), step));
  }
  if (element.pick()) {
    stages.push_back(StepApplication(stages.back(), isHittable_)(*element.pick()));
  }
  return stages;
}

}  // namespace quobrak::simulator
