#pragma once

#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <type_traits>
#include <vector>

#include "drivers/simulator/DescriptionFile.h"
#include "drivers/simulator/Rule.h"
#include "platform/foundation/JSON.h"

namespace quobrak::simulator {

/// What a rule may refer to. Each operation is told the place where it does, and throws `DecodingError` for what there
/// is not.
struct RuleReferences {
  /// As shown to the phone's user.
  std::string applicationName;
  /// Whether addresses can open the application.
  bool opensAddresses;
  /// The values that the phone begins with.
  const NamedValues& values;
  std::function<void(const JSONReader& at, const std::string& name)> requireScreen;
  std::function<void(const JSONReader& at, const std::string& name)> requireFragment;
  /// May be checked later, when all applications are known.
  std::function<void(const JSONReader& at, const std::string& bundleIdentifier)> requireApplication;
};

/// Reads the rules of an application from its description.
class RuleReader {
 public:
  /// Both must outlive the reader.
  RuleReader(DescriptionFile& file, const RuleReferences& references) : file_(file), references_(references) {}

  /// The rule as far as it can be used; all its faults are noted in the file.
  Rule read(const JSONReader& json);

 private:
  enum class Need { none, optional, required };
  struct EventRow;
  static const std::vector<EventRow>& eventRows();
  struct EffectRow;
  static const std::vector<EffectRow>& effectRows();

  // What `read` makes of a place: it takes the place, and may be an operation of this object. A fault is noted, and
  // then there is none.

  template <class Read>
  auto attempted(const JSONReader& json, const Read& read) {
    std::optional<decltype(call(read, json))> result;
    file_.attempt([&] { result.emplace(call(read, json)); });
    return result;
  }

  /// Of a member; it is a fault that it is left out.
  template <class Read>
  auto required(const JSONReader& object, std::string_view key, const Read& read) {
    return attempted(object, [&](const JSONReader& json) { return call(read, json.member(key)); });
  }

  /// Of a member; none where it is left out.
  template <class Read>
  auto optionally(const JSONReader& object, std::string_view key, const Read& read) {
    std::optional<decltype(call(read, object))> result;
    file_.attempt([&] {
      if (const std::optional<JSONReader> member = object.optionalMember(key)) {
        result.emplace(call(read, *member));
      }
    });
    return result;
  }

  template <class Read>
  auto call(const Read& read, const JSONReader& json) {
    if constexpr (std::is_member_function_pointer_v<Read>) {
      return (this->*read)(json);
    } else {
      return read(json);
    }
  }

  template <class Read>
  auto asNeeded(Need need, const JSONReader& object, std::string_view key, const Read& read) {
    using Result = decltype(required(object, key, read));
    if (need == Need::none) {
      return Result();
    }
    return need == Need::required ? required(object, key, read) : optionally(object, key, read);
  }

  const EventRow* readEvent(const JSONReader& json);
  PredicateEvaluator readPredicate(const JSONReader& json);
  PredicateEvaluator readCondition(const JSONReader& json);
  RuleDuration readRuleDuration(const JSONReader& json);
  RuleDuration readInterval(const JSONReader& json);
  std::vector<std::string> readScreens(const JSONReader& json);
  std::string readScreen(const JSONReader& json);
  std::string readApplication(const JSONReader& json);
  SetValues::Source readSource(const JSONReader& json);
  std::vector<Effect> readEffects(const JSONReader& json);
  Effect readEffect(const JSONReader& json);

  // One for each effect: `effect` is the object, `main` its member that says which effect it is.
  Effect show(const JSONReader& effect, const JSONReader& main);
  Effect set(const JSONReader& effect, const JSONReader& main);
  Effect add(const JSONReader& effect, const JSONReader& main);
  Effect change(const JSONReader& effect, const JSONReader& main);
  Effect move(const JSONReader& effect, const JSONReader& main);
  Effect insert(const JSONReader& effect, const JSONReader& main);
  Effect remove(const JSONReader& effect, const JSONReader& main);
  Effect focus(const JSONReader& effect, const JSONReader& main);
  Effect alert(const JSONReader& effect, const JSONReader& main);
  Effect sheet(const JSONReader& effect, const JSONReader& main);
  Effect systemAlert(const JSONReader& effect, const JSONReader& main);
  Effect askPermission(const JSONReader& effect, const JSONReader& main);
  Effect open(const JSONReader& effect, const JSONReader& main);
  Effect openAddress(const JSONReader& effect, const JSONReader& main);
  Effect terminate(const JSONReader& effect, const JSONReader& main);
  Effect later(const JSONReader& effect, const JSONReader& main);

  /// Those that are picked by the predicate, or none where that is a fault.
  PredicateEvaluator picked(const JSONReader& predicate);
  void readMove(const JSONReader& by, MoveElements& effect);
  void readAlert(const JSONReader& texts, RaiseAlert& alert);
  Effect raise(const JSONReader& effect, const JSONReader& main, AlertKind kind);

  DescriptionFile& file_;
  const RuleReferences& references_;
};

}  // namespace quobrak::simulator
