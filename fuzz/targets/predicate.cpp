// A predicate format, and on the lines behind it what an element says of itself; they also stand for the %@ of the
// format.

#include <algorithm>
#include <array>
#include <optional>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

#include "fuzz/support/Input.h"
#include "fuzz/support/Require.h"
#include "platform/foundation/NSPredicate.h"
#include "platform/foundation/NSRegularExpression.h"
#include "platform/foundation/PredicateEvaluator.h"
#include "platform/foundation/Unicode.h"

namespace quobrak::fuzz {

namespace {

constexpr std::size_t LINES = 4;
using Lines = std::array<std::string, LINES>;

/// An element whose attributes are lines; one that is empty has no value. Every key means something.
class Attributes final : public KeyValueSource {
 public:
  explicit Attributes(const Lines& lines) : lines_(lines) {}

  Value valueForKey(std::string_view key) const override {
    if (key == "enabled" || key == "selected") {
      return key == "enabled";
    }
    const std::string& line = lines_[key.size() % LINES];
    return line.empty() ? Value() : Value(line);
  }

 private:
  const Lines& lines_;
};

bool areSame(const NSPredicate& one, const NSPredicate& other);

struct SameNode {
  bool operator()(const NSPredicate::Comparison& one, const NSPredicate::Comparison& other) const {
    return one.left == other.left && one.op == other.op && one.ignoresCase == other.ignoresCase &&
           one.right == other.right;
  }
  bool operator()(const NSPredicate::Compound& one, const NSPredicate::Compound& other) const {
    return one.junction == other.junction &&
           std::equal(one.parts.begin(), one.parts.end(), other.parts.begin(), other.parts.end(), areSame);
  }
  template <class One, class Other>
  bool operator()(const One&, const Other&) const {
    return false;
  }
};

bool areSame(const NSPredicate& one, const NSPredicate& other) {
  return std::visit(SameNode(), one.node(), other.node());
}

std::vector<NSPredicate::Argument> argumentsFor(std::string_view format, const Lines& lines) {
  std::vector<NSPredicate::Argument> arguments;
  for (auto at = format.find("%@"); at != format.npos; at = format.find("%@", at + 1)) {
    const std::size_t number = arguments.size();
    arguments.push_back(number % 3 == 2 ? NSPredicate::Argument(true) : lines[number % LINES]);
  }
  return arguments;
}

/// None where the format is none; the error then shows it.
std::optional<NSPredicate> parsed(const std::string& format, const Lines& lines) {
  try {
    return NSPredicate(format, argumentsFor(format, lines));
  } catch (const PredicateFormatError& error) {
    const std::string_view message(error.what());
    // What is shown of an error ends at a NUL.
    const bool hasNul = format.find('\0') != std::string::npos;
    require(message.starts_with("column ") && (hasNul || message.ends_with(" in the predicate format: " + format)),
            "an error of a format shows the place and the format");
    return std::nullopt;
  }
}

/// Whether the predicate holds; none where a pattern in it does not compile or cannot be matched.
std::optional<bool> holds(const NSPredicate& predicate, const Attributes& attributes) {
  try {
    return PredicateEvaluator(predicate).evaluate(attributes);
  } catch (const RegularExpressionError& error) {
    require(isUTF8(error.what()), "an error of a pattern can be read");
    return std::nullopt;
  }
}

void tryPredicate(const NSPredicate& predicate, const Attributes& attributes) {
  const std::string written = predicate.predicateFormat();
  const NSPredicate read(written);
  require(areSame(read, predicate), "a predicate parses to the same tree from the format that it is written as");
  require(read.predicateFormat() == written, "what was written is written in the same way again");

  const std::optional<bool> held = holds(predicate, attributes);
  const std::optional<bool> negation = holds(NSCompoundPredicate::notPredicate(predicate), attributes);
  require(held.has_value() == negation.has_value() && (!held || *held != *negation),
          "either a predicate holds or its negation");
  require(holds(NSCompoundPredicate::andPredicate({predicate, read}), attributes) == held &&
              holds(NSCompoundPredicate::orPredicate({predicate, read}), attributes) == held,
          "a predicate and itself, or a predicate or itself, is that predicate");
}

}  // namespace

}  // namespace quobrak::fuzz

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace quobrak;
  using namespace quobrak::fuzz;
  Input input(data, size);
  const std::string format = input.textLine();
  Lines lines;
  std::generate(lines.begin(), lines.end(), [&input] { return input.textLine(); });
  if (const std::optional<NSPredicate> predicate = parsed(format, lines)) {
    tryPredicate(*predicate, Attributes(lines));
  }
  return 0;
}
