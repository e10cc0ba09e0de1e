#pragma once

#include <memory>
#include <span>
#include <stdexcept>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

namespace quobrak {

/// A predicate format that cannot be read: says what, at which column (from 1), and what was expected there.
class PredicateFormatError : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

/// A condition on an element's attributes, parsed once from the platform's format strings into a small tree that a
/// driver evaluates in memory or hands on as text. A value: copies share the tree.
///
/// The format language: key paths; `==` (also `=`), `!=`, `CONTAINS`, `BEGINSWITH`, `ENDSWITH`, `LIKE`, `MATCHES`,
/// `IN`, each with an optional `[c]` for "without regard to case"; `AND`, `OR`, `NOT` in either case, or `&&`, `||`,
/// `!`; text literals in single or double quotes with the escapes \" \' \\ \n \r \t \uXXXX; `TRUE`, `YES`, `FALSE`,
/// `NO` in either case, and `1` and `0` for them; `%@` for the next argument; parentheses. NOT binds tighter than AND,
/// AND tighter than OR.
///
/// Some of it is another way to write what the tree has: `a != b` is `NOT a == b`; `a IN {b, c}` is `a == b OR a == c`,
/// and `a IN b` is `b CONTAINS a`; `BEGINSWITH`, `ENDSWITH` and `LIKE` (`*` for any text, `?` for any character),
/// behind which a text stands, are `MATCHES`.
class NSPredicate {
 public:
  using Argument = std::variant<std::string, bool>;

  struct KeyPath {
    std::string name;
    bool operator==(const KeyPath&) const = default;
  };
  /// What stands on a side of a comparison.
  using Operand = std::variant<KeyPath, std::string, bool>;

  enum class Operator { equalTo, contains, matches };

  struct Comparison {
    Operand left;
    Operator op;
    bool ignoresCase;
    Operand right;
  };

  enum class Junction { conjunction, disjunction, negation };

  /// A negation has one part; a conjunction of no parts is true, a disjunction of none is false.
  struct Compound {
    Junction junction;
    std::vector<NSPredicate> parts;
  };

  using Node = std::variant<Comparison, Compound>;

  /// Throws `PredicateFormatError` for a format that cannot be read, and when the number of `%@` is not that of the
  /// arguments.
  explicit NSPredicate(std::string_view format, std::span<const Argument> arguments = {});
  NSPredicate(std::string_view format, std::initializer_list<Argument> arguments);

  /// Whether a format can name the key path: words of ASCII letters, digits and "_", none of which begins with a digit,
  /// with dots between them. A word that means something in formats, such as `in` or `yes`, is no key path.
  static bool isKeyPath(std::string_view text);

  const Node& node() const { return *node_; }

  /// The predicate as a format string without arguments, which parses to the same tree.
  std::string predicateFormat() const;

 private:
  explicit NSPredicate(Node node) : node_(std::make_shared<const Node>(std::move(node))) {}
  std::shared_ptr<const Node> node_;

  friend class NSCompoundPredicate;
  friend class PredicateParser;
};

/// Predicates made of predicates.
class NSCompoundPredicate {
 public:
  NSCompoundPredicate() = delete;
  static NSPredicate andPredicate(std::vector<NSPredicate> subpredicates);
  static NSPredicate orPredicate(std::vector<NSPredicate> subpredicates);
  static NSPredicate notPredicate(NSPredicate subpredicate);
};

}  // namespace quobrak
