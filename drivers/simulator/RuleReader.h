#pragma once

#include <functional>
#include <optional>
#include <string>
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
  struct EffectRow;
  static const std::vector<EffectRow>& effectRows();

  /// None where the rule or effect has none.
  std::optional<PredicateEvaluator> readCondition(const JSONReader& json) const;
  std::vector<Effect> readEffects(const JSONReader& json);
  std::optional<Effect> readEffect(const JSONReader& json);

  PredicateEvaluator readPredicate(const JSONReader& json) const;
  RuleDuration readRuleDuration(const JSONReader& json) const;
  /// Those that the rule or effect names.
  std::vector<std::string> readScreens(const JSONReader& json) const;
  RuleDuration readInterval(const JSONReader& json) const;
  SetValues::Source readSource(const JSONReader& json);

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

  RaiseAlert readAlert(const JSONReader& effect, const JSONReader& main, AlertKind kind);

  DescriptionFile& file_;
  const RuleReferences& references_;
};

}  // namespace quobrak::simulator
