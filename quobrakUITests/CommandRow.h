#pragma once

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <tuple>
#include <utility>
#include <variant>

#include "platform/foundation/FatalError.h"
#include "quobrakUITests/Parameters.h"

/// What a row of the command table is made of. A command is one row; dispatch, and whatever explains or checks
/// commands, read the rows.
namespace quobrak {

/// What an argument counts or means.
enum class Unit { text, milliseconds, percent, points, count, truthValue };

/// The value that stands in for an absent field; none where the field is required.
using ArgumentDefault = std::variant<std::monostate, std::int64_t, bool>;

/// How an argument is read from its field: by a getter that raises where something is wrong with it, or directly, where
/// an absent field stops the process.
enum class Reading { checked, direct };

/// What an argument stands for, where that is more than its unit tells.
enum class Meaning {
  other,
  bundleId,
  partOfText,
  /// A regular expression.
  pattern,
  className,
  /// Of an element among those that are found.
  rank,
  stepName,
  /// A time that is slept in one piece.
  pause,
  swipeCount,
  percent,
  /// A distance in points, as it is written.
  distance
};

/// What becomes of a run that comes to something wrong.
enum class Consequence { goesOn, failsScript, stopsProcess };

/// What is wrong with a value that can be read.
struct ValueFault {
  /// What the run tells of it, letter for letter; words of its own where the run goes on in silence.
  std::string message;
  Consequence consequence = Consequence::failsScript;

  bool operator==(const ValueFault&) const = default;
};

/// Whether a command minds a value before it asks for the application that it acts on, or behind that.
enum class Moment { beforeApplication, withApplication };

/// One argument of a command, in words.
struct ArgumentInfo {
  /// The field that holds it, counted from 0, where field 0 is the command's name.
  std::size_t field = 0;
  std::string_view label;
  Unit unit = Unit::text;
  ArgumentDefault defaultValue;
  Reading reading = Reading::checked;
  /// Reads the argument as the command would, and drops it: raises or stops as the command would. The row sets it.
  void (*check)(FunctionParameters fields) = nullptr;
  Meaning meaning = Meaning::other;
  /// What is wrong with the value, of which the command minds more than that it can be read; none where it will do.
  /// Asks no phone, and changes nothing. Null where any value will do. Only for fields that `check` has nothing
  /// against.
  std::optional<ValueFault> (*fault)(FunctionParameters fields, std::size_t field) = nullptr;
  Moment faultMoment = Moment::beforeApplication;
};

/// What the process stops with where the field of a direct argument is absent.
inline std::string absentFieldMessage(const ArgumentInfo& argument) {
  return "Index out of range: the field " + std::to_string(argument.field) + " (" + std::string(argument.label) +
         ") is missing";
}

/// Whether a line of a script may end before the argument.
inline bool mayBeLeftOut(const ArgumentInfo& argument) {
  return !std::holds_alternative<std::monostate>(argument.defaultValue);
}

/// A text that can be a template argument.
template <std::size_t Size>
struct FixedText {
  // NOLINTNEXTLINE(google-explicit-constructor): a literal is meant to become one unasked.
  constexpr FixedText(const char (&literal)[Size]) { std::copy_n(literal, Size, characters.begin()); }
  constexpr std::string_view view() const { return {characters.data(), Size - 1}; }
  std::array<char, Size> characters{};
};

/// An argument that is a field as it stands. An absent field is a programming error of the script: fatal.
template <std::size_t Field, FixedText Label, Unit UnitOfValue = Unit::text>
struct DirectField {
  static constexpr ArgumentInfo INFO{Field, Label.view(), UnitOfValue, {}, Reading::direct};

  static std::string read(FunctionParameters fields) {
    if (Field >= fields.size()) {
      fatalError(absentFieldMessage(INFO));
    }
    return std::string(fields[Field]);
  }
};

/// An argument that a getter of `Parameters` reads and checks.
template <auto Getter, std::size_t Field, FixedText Label, Unit UnitOfValue, auto Default = std::monostate{}>
struct CheckedField {
  static constexpr ArgumentInfo INFO{Field, Label.view(), UnitOfValue, ArgumentDefault(Default)};

  static auto read(FunctionParameters fields) { return Getter(fields, Field); }
};

/// An argument, with what it stands for and what its command minds of it (see `ArgumentInfo`).
template <class Argument, Meaning MeaningOfValue, auto Fault = nullptr, Moment FaultMoment = Moment::beforeApplication>
struct Meant : Argument {
  static constexpr ArgumentInfo INFO = [] {
    ArgumentInfo info = Argument::INFO;
    info.meaning = MeaningOfValue;
    info.fault = Fault;
    info.faultMoment = FaultMoment;
    return info;
  }();
};

/// What a command needs of the run before it and leaves to the commands behind it, as far as that is certain without a
/// phone.
struct CommandEffects {
  /// The application that commands act on.
  enum class Application { unused, needed, started };
  /// The last element found. What remembers one may also find none.
  enum class Search { unused, needed, remembered };
  /// The measured step.
  enum class Step { unused, begun, ended };

  Application application = Application::unused;
  Search search = Search::unused;
  Step step = Step::unused;
  /// What stops the process where no application was started, whose words `reason` has; null where the command then
  /// only fails. Only for fields that all arguments have nothing against.
  std::string (*stopWithoutApplication)(FunctionParameters fields, std::string_view reason) = nullptr;
};

/// One command.
struct CommandRow {
  static constexpr std::size_t MOST_ARGUMENTS = 3;

  std::string_view name;
  /// What the command does, in one line.
  std::string_view summary;
  std::array<ArgumentInfo, MOST_ARGUMENTS> argumentInfos;
  std::size_t argumentCount;
  /// Reads the arguments from the fields, from left to right, all of them, and then carries the command out.
  void (*run)(FunctionParameters fields);
  CommandEffects effects;

  constexpr std::span<const ArgumentInfo> arguments() const { return {argumentInfos.data(), argumentCount}; }
};

/// How a line of a script is written: "name,first[,second]".
inline std::string usageOf(const CommandRow& row) {
  std::string usage(row.name);
  std::string brackets;
  for (const ArgumentInfo& argument : row.arguments()) {
    if (mayBeLeftOut(argument)) {
      usage += "[";
      brackets += "]";
    }
    usage += "," + std::string(argument.label);
  }
  return usage + brackets;
}

template <auto Operation, class... Arguments>
void runCommand([[maybe_unused]] FunctionParameters fields) {
  // Braces, because they alone promise the order from left to right.
  std::tuple<decltype(Arguments::read(fields))...> values{Arguments::read(fields)...};
  std::apply(Operation, std::move(values));
}

template <class Argument>
void checkArgument(FunctionParameters fields) {
  static_cast<void>(Argument::read(fields));
}

template <class Argument>
constexpr ArgumentInfo checkable() {
  ArgumentInfo info = Argument::INFO;
  info.check = &checkArgument<Argument>;
  return info;
}

/// The row of a command that calls `Operation` with its arguments, in the order of the operation's parameters.
template <auto Operation, class... Arguments>
constexpr CommandRow command(std::string_view name, std::string_view summary, CommandEffects effects = {}) {
  static_assert(sizeof...(Arguments) <= CommandRow::MOST_ARGUMENTS);
  return {name,   summary, {checkable<Arguments>()...}, sizeof...(Arguments), &runCommand<Operation, Arguments...>,
          effects};
}

enum class TableFault { none, wrongNumberOfRows, emptyName, duplicateName, emptySummary };

/// What is wrong with a table, for a `static_assert` beside it: a wrong table does not compile.
constexpr TableFault tableFault(std::span<const CommandRow> rows, std::size_t announcedRows) {
  if (rows.size() != announcedRows) {
    return TableFault::wrongNumberOfRows;
  }
  for (std::size_t i = 0; i < rows.size(); ++i) {
    if (rows[i].name.empty()) {
      return TableFault::emptyName;
    }
    if (rows[i].summary.empty()) {
      return TableFault::emptySummary;
    }
    for (std::size_t j = 0; j < i; ++j) {
      if (rows[i].name == rows[j].name) {
        return TableFault::duplicateName;
      }
    }
  }
  return TableFault::none;
}

}  // namespace quobrak
