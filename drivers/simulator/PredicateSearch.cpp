#include "drivers/simulator/PredicateSearch.h"

#include <array>
#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <variant>
#include <vector>

#include "drivers/simulator/ElementAttributes.h"
#include "platform/foundation/PredicateEvaluator.h"
#include "platform/foundation/Unicode.h"

namespace quobrak::simulator {

using IsHittable = std::function<bool(const Element&)>;

class PredicateSearch::Condition {
 public:
  virtual ~Condition() = default;
  /// Those of the elements for which it holds.
  virtual PlaceSet matches(const ElementIndex& index, const PlaceSet& elements) const = 0;
};

namespace {

using Condition = PredicateSearch::Condition;
using Comparison = NSPredicate::Comparison;
using Operator = NSPredicate::Operator;

std::unique_ptr<const Condition> prepared(const NSPredicate& predicate, const IsHittable& isHittable);

class Junction final : public Condition {
 public:
  Junction(const NSPredicate::Compound& compound, const IsHittable& isHittable) : junction_(compound.junction) {
    for (const NSPredicate& part : compound.parts) {
      parts_.push_back(prepared(part, isHittable));
    }
  }

  PlaceSet matches(const ElementIndex& index, const PlaceSet& elements) const override {
    switch (junction_) {
      case NSPredicate::Junction::conjunction:
        return matchesOfAll(index, elements);
      case NSPredicate::Junction::disjunction:
        return matchesOfAny(index, elements);
      case NSPredicate::Junction::negation:
        return PlaceSet(elements) -= parts_.front()->matches(index, elements);
    }
    return index.noPlace();
  }

 private:
  PlaceSet matchesOfAll(const ElementIndex& index, const PlaceSet& elements) const {
    PlaceSet left = elements;
    for (auto part = parts_.begin(); part != parts_.end() && !left.isEmpty(); ++part) {
      left = (*part)->matches(index, left);
    }
    return left;
  }

  PlaceSet matchesOfAny(const ElementIndex& index, const PlaceSet& elements) const {
    PlaceSet kept = index.noPlace();
    PlaceSet left = elements;
    for (auto part = parts_.begin(); part != parts_.end() && !left.isEmpty(); ++part) {
      const PlaceSet found = (*part)->matches(index, left);
      kept |= found;
      left -= found;
    }
    return kept;
  }

  NSPredicate::Junction junction_;
  std::vector<std::unique_ptr<const Condition>> parts_;
};

/// A truth value that elements have is as wanted.
class TruthComparison final : public Condition {
 public:
  using Column = const PlaceSet& (ElementIndex::*)() const;

  TruthComparison(Column column, bool wanted) : column_(column), wanted_(wanted) {}

  PlaceSet matches(const ElementIndex& index, const PlaceSet& elements) const override {
    const PlaceSet& isTrue = (index.*column_)();
    return wanted_ ? PlaceSet(elements) &= isTrue : PlaceSet(elements) -= isTrue;
  }

 private:
  Column column_;
  bool wanted_;
};

/// A text of the elements contains a given one, or equals it.
class TextComparison final : public Condition {
 public:
  using Search = PlaceSet (TextColumn::*)(std::string_view) const;

  TextComparison(TextAttribute attribute, Search search, std::string_view text, bool ignoresCase)
      : attribute_(attribute),
        search_(search),
        text_(ignoresCase ? caseFolded(text).text : text),
        form_(ignoresCase ? TextForm::folded : TextForm::plain) {}

  PlaceSet matches(const ElementIndex& index, const PlaceSet& elements) const override {
    return (index.texts(attribute_, form_).*search_)(text_) &= elements;
  }

 private:
  TextAttribute attribute_;
  Search search_;
  std::string text_;
  TextForm form_;
};

/// A text of the elements matches a pattern.
class PatternMatch final : public Condition {
 public:
  PatternMatch(const NSPredicate& comparison, TextAttribute attribute)
      : evaluator_(comparison), attribute_(attribute) {}

  PlaceSet matches(const ElementIndex& index, const PlaceSet& elements) const override {
    const TextColumn& texts = index.texts(attribute_, TextForm::plain);
    PlaceSet found = index.noPlace();
    // Many elements have no text, and what holds for one of them holds for all.
    std::optional<bool> holdsForEmpty;
    elements.forEach([&](std::size_t place) {
      if (texts.isMissing(place)) {
        return;
      }
      const std::string_view text = texts.text(place);
      const bool holds = text.empty() && holdsForEmpty ? *holdsForEmpty : evaluator_.evaluate(Source(text));
      if (text.empty()) {
        holdsForEmpty = holds;
      }
      if (holds) {
        found.insert(place);
      }
    });
    return found;
  }

 private:
  class Source final : public KeyValueSource {
   public:
    explicit Source(std::string_view text) : text_(text) {}
    Value valueForKey(std::string_view) const override { return text_; }

   private:
    std::string_view text_;
  };

  PredicateEvaluator evaluator_;
  TextAttribute attribute_;
};

/// Any other comparison.
class Evaluation final : public Condition {
 public:
  Evaluation(const NSPredicate& comparison, const IsHittable& isHittable)
      : evaluator_(comparison), isHittable_(isHittable) {}

  PlaceSet matches(const ElementIndex& index, const PlaceSet& elements) const override {
    PlaceSet found = index.noPlace();
    elements.forEach([&](std::size_t place) {
      if (evaluator_.evaluate(ElementAttributes(&index.element(place), isHittable_))) {
        found.insert(place);
      }
    });
    return found;
  }

 private:
  PredicateEvaluator evaluator_;
  const IsHittable& isHittable_;
};

template <class Meaning>
struct Key {
  std::string_view name;
  Meaning meaning;
};

constexpr std::array TEXT_KEYS{
    Key<TextAttribute>{"label", TextAttribute::label},
    Key<TextAttribute>{"identifier", TextAttribute::identifier},
    Key<TextAttribute>{"placeholderValue", TextAttribute::placeholder},
    Key<TextAttribute>{"value", TextAttribute::value},
};

constexpr std::array TRUTH_KEYS{
    Key<TruthComparison::Column>{"enabled", &ElementIndex::enabled},
    Key<TruthComparison::Column>{"selected", &ElementIndex::selected},
};

template <class Meaning, std::size_t COUNT>
std::optional<Meaning> meaningOf(const NSPredicate::Operand& operand, const std::array<Key<Meaning>, COUNT>& keys) {
  const auto* const keyPath = std::get_if<NSPredicate::KeyPath>(&operand);
  for (const Key<Meaning>& key : keys) {
    if (keyPath != nullptr && keyPath->name == key.name) {
      return key.meaning;
    }
  }
  return std::nullopt;
}

/// How a comparison of a text of the elements with the text `right` can search a column; none where it cannot.
std::optional<TextComparison::Search> searchFor(Operator op, std::string_view right) {
  switch (op) {
    case Operator::equalTo:
      return &TextColumn::equalTo;
    case Operator::contains:
      return &TextColumn::containing;
    case Operator::matches:
      return matchesOnlyItself(right) ? std::optional(&TextColumn::equalTo) : std::nullopt;
  }
  return std::nullopt;
}

std::unique_ptr<const Condition> preparedTextComparison(const NSPredicate& predicate, TextAttribute attribute,
                                                        const std::string& text) {
  const auto& comparison = std::get<Comparison>(predicate.node());
  if (const auto search = searchFor(comparison.op, text)) {
    return std::make_unique<TextComparison>(attribute, *search, text, comparison.ignoresCase);
  }
  return std::make_unique<PatternMatch>(predicate, attribute);
}

std::unique_ptr<const Condition> preparedComparison(const NSPredicate& predicate, const IsHittable& isHittable) {
  const auto& comparison = std::get<Comparison>(predicate.node());
  const auto& left = comparison.left;
  const auto& right = comparison.right;
  if (const auto attribute = meaningOf(left, TEXT_KEYS); attribute && std::holds_alternative<std::string>(right)) {
    return preparedTextComparison(predicate, *attribute, std::get<std::string>(right));
  }
  if (const auto column = meaningOf(left, TRUTH_KEYS);
      column && comparison.op == Operator::equalTo && std::holds_alternative<bool>(right)) {
    return std::make_unique<TruthComparison>(*column, std::get<bool>(right));
  }
  return std::make_unique<Evaluation>(predicate, isHittable);
}

std::unique_ptr<const Condition> prepared(const NSPredicate& predicate, const IsHittable& isHittable) {
  if (const auto* const compound = std::get_if<NSPredicate::Compound>(&predicate.node())) {
    return std::make_unique<Junction>(*compound, isHittable);
  }
  return preparedComparison(predicate, isHittable);
}

}  // namespace

PredicateSearch::PredicateSearch(const NSPredicate& predicate, const IsHittable& isHittable)
    : condition_(prepared(predicate, isHittable)) {}

PredicateSearch::~PredicateSearch() = default;
PredicateSearch::PredicateSearch(PredicateSearch&&) noexcept = default;

PlaceSet PredicateSearch::matches(const ElementIndex& index, const PlaceSet& elements) const {
  return condition_->matches(index, elements);
}

}  // namespace quobrak::simulator
