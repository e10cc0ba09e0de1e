#pragma once

#include <chrono>
#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <utility>
#include <variant>
#include <vector>

#include "drivers/simulator/NamedValues.h"
#include "platform/foundation/PredicateEvaluator.h"

/// What a simulated application does on what happens to it.
namespace quobrak::simulator {

/// A length of time that is fixed, or that a named value tells when it is needed.
using RuleDuration = std::variant<std::chrono::milliseconds, std::string>;

/// How often a rule of time applies at most: as often as screens are drawn, and hardly more.
constexpr std::chrono::milliseconds SHORTEST_INTERVAL(10);

/// Shows another screen of the application.
struct ShowScreen {
  std::string screen;
};

/// An attribute of the first element that the predicate picks, or of the element that the event is about; empty where
/// there is none.
struct ElementText {
  std::optional<PredicateEvaluator> element;
  std::string attribute;
};

/// Gives named values other texts, all made of what the values were before.
struct SetValues {
  using Source = std::variant<TextTemplate, ElementText>;
  std::vector<std::pair<std::string, Source>> texts;
};

struct AddToValues {
  std::map<std::string, std::int64_t> amounts;
};

/// A text for an attribute, or none to take away what it has.
struct AttributeText {
  std::optional<TextTemplate> text;
};

/// Gives elements other attributes; what is not named stays.
struct ChangeElements {
  PredicateEvaluator elements;
  std::optional<AttributeText> label;
  std::optional<AttributeText> identifier;
  std::optional<AttributeText> value;
  std::optional<AttributeText> placeholder;
  std::optional<bool> isEnabled;
  std::optional<bool> isSelected;
  std::optional<bool> isVisible;
  std::optional<double> x;
  std::optional<double> y;
  std::optional<double> width;
  std::optional<double> height;
};

/// Moves elements with all that is in them, evenly in the time given.
struct MoveElements {
  PredicateEvaluator elements;
  double dx;
  double dy;
  RuleDuration over;
};

/// Where inserted elements lie.
enum class Insertion {
  /// Where their page source says, on the content as it was before any scrolling.
  asCaptured,
  /// Below all content of what they are inserted into.
  atEnd,
};

/// Adds the elements of a page source in front of what is there.
struct InsertElements {
  std::string fragment;
  /// Into the first such element; none for the application itself.
  std::optional<PredicateEvaluator> into;
  Insertion insertion;
  /// None where they stay.
  std::optional<RuleDuration> lifetime;
};

struct RemoveElements {
  PredicateEvaluator elements;
};

/// Gives the first such element the keyboard.
struct FocusElement {
  PredicateEvaluator elements;
};

enum class AlertKind {
  /// An alert of the application, in its own tree.
  alert,
  /// The same along the lower edge of the screen.
  sheet,
  /// An alert of the system process.
  system,
};

struct RaiseAlert {
  AlertKind kind;
  TextTemplate title;
  TextTemplate message;
  std::vector<TextTemplate> buttons;
  /// The named value that receives the label of the button that answers the alert; empty for none.
  std::string answer;
};

/// Brings another application to the front, starting it where it does not run.
struct OpenApplication {
  std::string bundleIdentifier;
};

/// Opens an address in the application that takes such ones; nowhere where none does.
struct OpenAddress {
  TextTemplate address;
};

struct TerminateApplication {
  std::string bundleIdentifier;
};

struct Effect;

/// Carries out effects later, if the application still runs, shows one of the screens, and the named values are so
/// then.
struct Later {
  RuleDuration after;
  /// Empty for any.
  std::vector<std::string> screens;
  /// None for anything.
  std::optional<PredicateEvaluator> condition;
  std::vector<Effect> effects;
};

struct Effect {
  std::variant<ShowScreen, SetValues, AddToValues, ChangeElements, MoveElements, InsertElements, RemoveElements,
               FocusElement, RaiseAlert, OpenApplication, OpenAddress, TerminateApplication, Later>
      what;
};

enum class RuleEvent { launch, screen, tap, longPress, text, scroll, address, answer, time };

/// An end of what can be scrolled.
enum class ScrollEnd { start, end };

/// What an application does on an event.
struct Rule {
  RuleEvent event{};
  /// Which elements the event is about; none for any, or where the event is about none.
  std::optional<PredicateEvaluator> element;
  /// Which alerts an answer is to; none for any.
  std::optional<PredicateEvaluator> alert;
  /// The end that scrolling must have come to; none for any place.
  std::optional<ScrollEnd> at;
  /// The screens on which the rule applies; empty for all.
  std::vector<std::string> screens;
  /// What the phone's named values must be; none for anything.
  std::optional<PredicateEvaluator> condition;
  /// When time has passed, since a screen of `screens` began to be shown, or since the start where there are none.
  RuleDuration after;
  /// And then again each time so much has passed.
  std::optional<RuleDuration> every;
  std::vector<Effect> effects;
};

}  // namespace quobrak::simulator
