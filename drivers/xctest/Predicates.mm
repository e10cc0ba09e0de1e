#import "drivers/xctest/Predicates.h"

#include "drivers/xctest/PredicateFault.h"
#include "drivers/xctest/Texts.h"

namespace quobrak::xctest {

namespace {

enum class Kind { text, truth };

Kind kindOf(const NSPredicate::Operand& operand) {
  if (const auto* const keyPath = std::get_if<NSPredicate::KeyPath>(&operand)) {
    return isTruthAttribute(keyPath->name) ? Kind::truth : Kind::text;
  }
  return std::holds_alternative<bool>(operand) ? Kind::truth : Kind::text;
}

bool isEmptyText(const NSPredicate::Operand& operand) {
  const auto* const text = std::get_if<std::string>(&operand);
  return text != nullptr && text->empty();
}

/// Whether the comparison is false for every element.
bool neverHolds(const NSPredicate::Comparison& comparison) {
  const Kind left = kindOf(comparison.left);
  const Kind right = kindOf(comparison.right);
  if (comparison.op == NSPredicate::Operator::equalTo) {
    return left != right;
  }
  const bool seeksNothing = comparison.op == NSPredicate::Operator::contains && isEmptyText(comparison.right);
  return left == Kind::truth || right == Kind::truth || seeksNothing;
}

/// One side of a comparison: what stands for it in the format, and the argument for that.
struct Side {
  NSString* placeholder;
  id argument;
};

Side sideOf(const NSPredicate::Operand& operand, PredicateScope scope) {
  if (const auto* const text = std::get_if<std::string>(&operand)) {
    return {@"%@", platformText(*text)};
  }
  if (const bool* const truth = std::get_if<bool>(&operand)) {
    return {@"%@", [NSNumber numberWithBool:*truth ? YES : NO]};
  }
  const std::string& attribute = std::get<NSPredicate::KeyPath>(operand).name;
  if (scope == PredicateScope::query && attribute == "exists") {
    return {
      @"%@", @YES
    };
  }
  return {@"%K", platformText(attribute)};
}

NSString* operatorOf(const NSPredicate::Comparison& comparison) {
  switch (comparison.op) {
    case NSPredicate::Operator::equalTo:
      return comparison.ignoresCase ? @"==[c]" : @"==";
    case NSPredicate::Operator::contains:
      return comparison.ignoresCase ? @"CONTAINS[c]" : @"CONTAINS";
    case NSPredicate::Operator::matches:
      return comparison.ignoresCase ? @"MATCHES[c]" : @"MATCHES";
  }
  return nil;
}

::NSPredicate* platformComparison(const NSPredicate::Comparison& comparison, PredicateScope scope) {
  if (neverHolds(comparison)) {
    return [::NSPredicate predicateWithValue:NO];
  }
  const Side left = sideOf(comparison.left, scope);
  const Side right = sideOf(comparison.right, scope);
  NSString* const format =
      [@[ left.placeholder, operatorOf(comparison), right.placeholder ] componentsJoinedByString:@" "];
  return [::NSPredicate predicateWithFormat:format argumentArray:@[ left.argument, right.argument ]];
}

}  // namespace

::NSPredicate* platformPredicate(const NSPredicate& predicate, PredicateScope scope) {
  if (const auto* const comparison = std::get_if<NSPredicate::Comparison>(&predicate.node())) {
    return platformComparison(*comparison, scope);
  }
  const auto& compound = std::get<NSPredicate::Compound>(predicate.node());
  NSMutableArray* const parts = [NSMutableArray array];
  for (const NSPredicate& part : compound.parts) {
    [parts addObject:platformPredicate(part, scope)];
  }
  switch (compound.junction) {
    case NSPredicate::Junction::conjunction:
      return [::NSCompoundPredicate andPredicateWithSubpredicates:parts];
    case NSPredicate::Junction::disjunction:
      return [::NSCompoundPredicate orPredicateWithSubpredicates:parts];
    case NSPredicate::Junction::negation:
      return [::NSCompoundPredicate notPredicateWithSubpredicate:[parts objectAtIndex:0]];
  }
  return nil;
}

}  // namespace quobrak::xctest
