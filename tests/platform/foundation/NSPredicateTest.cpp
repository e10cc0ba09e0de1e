#include "platform/foundation/NSPredicate.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <string_view>
#include <utility>
#include <variant>
#include <vector>

namespace quobrak {
namespace {

using namespace std::string_literals;
using testing::ThrowsMessage;

const NSPredicate::Comparison& comparison(const NSPredicate& predicate) {
  return std::get<NSPredicate::Comparison>(predicate.node());
}

const NSPredicate::Compound& compound(const NSPredicate& predicate) {
  return std::get<NSPredicate::Compound>(predicate.node());
}

/// Whether the trees are the same, whatever they print as.
bool isSame(const NSPredicate& left, const NSPredicate& right) {
  if (left.node().index() != right.node().index()) {
    return false;
  }
  if (const auto* one = std::get_if<NSPredicate::Comparison>(&left.node())) {
    const NSPredicate::Comparison& other = comparison(right);
    return one->left == other.left && one->op == other.op && one->ignoresCase == other.ignoresCase &&
           one->right == other.right;
  }
  const NSPredicate::Compound& one = compound(left);
  const NSPredicate::Compound& other = compound(right);
  return one.junction == other.junction &&
         std::equal(one.parts.begin(), one.parts.end(), other.parts.begin(), other.parts.end(), isSame);
}

/// The text on the right of a comparison.
std::string rightText(const NSPredicate& predicate) {
  return std::get<std::string>(comparison(predicate).right);
}

void expectFault(const std::string& format, const std::string& fault,
                 const std::vector<NSPredicate::Argument>& arguments = {}) {
  EXPECT_THAT(([&format, &arguments] { NSPredicate(format, arguments); }),
              ThrowsMessage<PredicateFormatError>(fault + " in the predicate format: " + format));
}

std::string repeated(std::string_view text, int count) {
  std::string result;
  for (int i = 0; i < count; ++i) {
    result += text;
  }
  return result;
}

TEST(NSPredicate, ParsesAComparison) {
  const NSPredicate predicate(R"(label CONTAINS[c] "x")");
  EXPECT_EQ(std::get<NSPredicate::KeyPath>(comparison(predicate).left).name, "label");
  EXPECT_EQ(comparison(predicate).op, NSPredicate::Operator::contains);
  EXPECT_TRUE(comparison(predicate).ignoresCase);
  EXPECT_EQ(rightText(predicate), "x");
}

TEST(NSPredicate, ParsesThreePartsIntoOneConjunction) {
  const NSPredicate predicate("a == 'x' and b == 'y' && c == 'z'");
  EXPECT_EQ(compound(predicate).junction, NSPredicate::Junction::conjunction);
  ASSERT_EQ(compound(predicate).parts.size(), 3U);
  EXPECT_EQ(compound(predicate).parts[2].predicateFormat(), R"(c == "z")");
}

TEST(NSPredicate, PrintsCanonically) {
  const std::vector<std::pair<std::string_view, std::string_view>> table = {
      {R"(label=="x")", R"(label == "x")"},
      {R"( label = 'x' )", R"(label == "x")"},
      {"\tlabel\n==\r\n'x'", R"(label == "x")"},
      {R"("x" == label)", R"("x" == label)"},
      {R"(label ==[c] title)", "label ==[c] title"},
      {R"(label contains[C] 'x')", R"(label CONTAINS[c] "x")"},
      {R"(label Contains [c] 'x')", R"(label CONTAINS[c] "x")"},
      {R"(label matches 'x')", R"(label MATCHES "x")"},
      {R"(label MATCHES[c] 'x')", R"(label MATCHES[c] "x")"},
      {"enabled == true", "enabled == TRUE"},
      {"enabled == Yes", "enabled == TRUE"},
      {"no == enabled", "FALSE == enabled"},
      {"FALSE = FALSE", "FALSE == FALSE"},
      {"_a.b2.c == x", "_a.b2.c == x"},
      {"true.and == yes.no", "true.and == yes.no"},
      {"notes == android", "notes == android"},
      {R"(label CONTAINS[c] "x" AND enabled == TRUE)", R"(label CONTAINS[c] "x" AND enabled == TRUE)"},
      {"a=x||b=y&&c=z", "a == x OR b == y AND c == z"},
      {"(a=x||b=y)&&c=z", "(a == x OR b == y) AND c == z"},
      {"(a=x)Or((b=y))", "a == x OR b == y"},
      {"(a=x and b=y) and c=z", "(a == x AND b == y) AND c == z"},
      {"a=x or (b=y or c=z)", "a == x OR (b == y OR c == z)"},
      {"not a=x", "NOT a == x"},
      {"!a=x", "NOT a == x"},
      {"! ! a=x", "NOT NOT a == x"},
      {"!!a=x", "NOT NOT a == x"},
      {"NOT a=x AND b=y", "NOT a == x AND b == y"},
      {"NOT(a=x AND b=y)", "NOT (a == x AND b == y)"},
      {"NOT(a=x OR NOT(b=y OR c=z))", "NOT (a == x OR NOT (b == y OR c == z))"},
      {"(not a=x) or b=y", "NOT a == x OR b == y"},
      {"TruePredicate", "TRUEPREDICATE"},
      {"falsepredicate and not truepredicate", "FALSEPREDICATE AND NOT TRUEPREDICATE"},
      {R"(label == "größe 👍")", R"(label == "größe 👍")"},
      {R"(label == 'it\'s "so"')", R"(label == "it's \"so\"")"},
      {R"(label == "it's \"so\"")", R"(label == "it's \"so\"")"},
      {R"(label == "\\\n\r\t")", R"(label == "\\\n\r\t")"},
      {"label == 'a\nb'", R"(label == "a\nb")"},
      {R"(label == "\u0000\u001f\u007F\u0041\u00e4")", R"(label == "\u0000\u001F\u007FAä")"},
      {R"(label == "")", R"(label == "")"},
      {"label == '%@ (a AND b)'", "label == \"%@ (a AND b)\""},
      {"enabled == 1 AND 0 == selected", "enabled == TRUE AND FALSE == selected"},
      {"label != 'x'", R"(NOT label == "x")"},
      {"label !=[c] 'x' AND b == c", R"(NOT label ==[c] "x" AND b == c)"},
      {"label IN {'a', \"b\", title}", R"(label == "a" OR label == "b" OR label == title)"},
      {"label in[c] {'a'}", R"(label ==[c] "a")"},
      {"label IN {}", "FALSEPREDICATE"},
      {"NOT label IN {'a','b'}", R"(NOT (label == "a" OR label == "b"))"},
      {"label IN {'a','b'} AND b == c", R"((label == "a" OR label == "b") AND b == c)"},
      {"'a' IN label", R"(label CONTAINS "a")"},
      {"label IN[c] 'abc'", R"("abc" CONTAINS[c] label)"},
      {"label BEGINSWITH 'a.b'", R"(label MATCHES "(?s)a\\.b.*")"},
      {"label endswith[c] 'a*b'", R"(label MATCHES[c] "(?s).*a\\*b")"},
      {R"(label LIKE 'a*b?c.\\*')", R"(label MATCHES "(?s)a.*b.c\\.\\*")"},
      {R"(label LIKE '\\')", R"(label MATCHES "(?s)\\\\")"},
  };
  for (const auto& [format, canonical] : table) {
    const NSPredicate predicate(format);
    EXPECT_EQ(predicate.predicateFormat(), canonical) << format;
    EXPECT_TRUE(isSame(NSPredicate(canonical), predicate)) << format;
  }
}

TEST(NSPredicate, EscapesInTexts) {
  EXPECT_EQ(rightText(NSPredicate(R"(label == "\" \' \\ \n \r \t")")), "\" ' \\ \n \r \t");
  EXPECT_EQ(rightText(NSPredicate(R"(label == '\" \' "')")), "\" ' \"");
  EXPECT_EQ(rightText(NSPredicate(R"(label == "\u00E4\u65e5x\uD83D\uDC4D\u0000y")")), "ä日x👍\0y"s);
  EXPECT_EQ(rightText(NSPredicate(R"(label == "\uFEFFa\\u0041")")), "\uFEFFa\\u0041");
}

TEST(NSPredicate, ArgumentsStandAsTheyAre) {
  for (const std::string& text :
       {"plain"s, ""s, "it's \"quoted\""s, "\\n \\u0041"s, "%@"s, "' OR 'a' == 'a"s, "größe\0"s}) {
    const NSPredicate predicate("label == %@", {text});
    EXPECT_EQ(rightText(predicate), text);
    EXPECT_TRUE(isSame(NSPredicate(predicate.predicateFormat()), predicate)) << predicate.predicateFormat();
  }
}

TEST(NSPredicate, ArgumentsAreTakenInTheirOrder) {
  const NSPredicate predicate("%@ == label AND (enabled==%@ OR label CONTAINS[c]%@) AND hint == '%@'",
                              {"one", true, "two"});
  EXPECT_EQ(predicate.predicateFormat(),
            R"("one" == label AND (enabled == TRUE OR label CONTAINS[c] "two") AND hint == "%@")");
}

TEST(NSPredicate, CopiesShareTheTree) {
  const NSPredicate predicate("a == b");
  const NSPredicate copy = predicate;  // NOLINT(performance-unnecessary-copy-initialization)
  EXPECT_EQ(&copy.node(), &predicate.node());
}

TEST(NSPredicate, FaultsNameTheColumnAndWhatWasExpected) {
  struct Case {
    std::string format;
    std::string fault;
  };
  const std::string operators =
      "expected an operator (==, !=, CONTAINS, BEGINSWITH, ENDSWITH, LIKE, MATCHES or IN), found ";
  const std::string operand = "expected a key path, a text, TRUE, FALSE or %@, found ";
  const std::string start = "expected a comparison, NOT or (, found ";
  const std::vector<Case> cases = {
      {R"(label SOUNDSLIKE "x")", "column 7: " + operators + "\"SOUNDSLIKE\""},
      {"label", "column 6: " + operators + "the end"},
      {"label 'x'", "column 7: " + operators + "'x'"},
      {"label < 'x'", "column 7: " + operators + "\"<\""},
      {"label AND b == c", "column 7: " + operators + "\"AND\""},
      {"(label) == 'x'", "column 7: " + operators + "\")\""},
      {"", "column 1: " + start + "the end"},
      {"  ", "column 3: " + start + "the end"},
      {"a == b AND", "column 11: " + start + "the end"},
      {"a == b OR or c == d", "column 11: " + start + "\"or\""},
      {"NOT", "column 4: " + start + "the end"},
      {"()", "column 2: " + start + "\")\""},
      {"CONTAINS 'x'", "column 1: " + start + "\"CONTAINS\""},
      {"größe == 'x'", "column 1: " + start + "\"größe\""},
      {"a..b == 'x'", "column 1: " + start + "\"a..b\""},
      {".a == 'x'", "column 1: " + start + "\".a\""},
      {"a. == 'x'", "column 1: " + start + "\"a.\""},
      {"a.2 == 'x'", "column 1: " + start + "\"a.2\""},
      {"'größe' == 👍", "column 12: " + operand + "\"👍\""},
      {"label ==", "column 9: " + operand + "the end"},
      {"index == 3", "column 10: " + operand + "\"3\""},
      {"label != ", "column 10: " + operand + "the end"},
      {"label LIKE title", "column 12: expected a text or %@, found \"title\""},
      {"label BEGINSWITH TRUE", "column 18: expected a text or %@, found \"TRUE\""},
      {"label ENDSWITH", "column 15: expected a text or %@, found the end"},
      {"label IN ,", "column 10: expected {, or a key path, a text, TRUE, FALSE or %@, found \",\""},
      {"label IN {", "column 11: " + operand + "the end"},
      {"label IN {'a' 'b'}", "column 15: expected , or }, found 'b'"},
      {"label IN {'a',}", "column 15: " + operand + "\"}\""},
      {"like == 'x'", "column 1: " + start + "\"like\""},
      {"label == == 'x'", "column 10: " + operand + "\"==\""},
      {"label == not", "column 10: " + operand + "\"not\""},
      {"label == TRUEPREDICATE", "column 10: " + operand + "\"TRUEPREDICATE\""},
      {"label == %K", "column 10: " + operand + "\"%\""},
      {"label CONTAINS[cd] 'x'", "column 15: expected [c], found \"[cd]\""},
      {"label CONTAINS[c 'x'", "column 15: expected [c], found \"[\""},
      {"a == b c == d", "column 8: expected AND, OR or the end, found \"c\""},
      {"a == b)", "column 7: expected AND, OR or the end, found \")\""},
      {"(a == b", "column 8: expected AND, OR or ), found the end"},
      {"(a == b c", "column 9: expected AND, OR or ), found \"c\""},
      {"label == 'x", "column 12: expected ' to close the text from column 10, found the end"},
      {"a == \"👍\\\"", "column 10: expected \" to close the text from column 6, found the end"},
      {R"(label == "a\qb")", R"(column 12: expected one of the escapes \" \' \\ \n \r \t \uXXXX, found "\q")"},
      {R"(label == "\ü")", R"(column 11: expected one of the escapes \" \' \\ \n \r \t \uXXXX, found "\ü")"},
      {R"(label == "\)", R"(column 11: expected one of the escapes \" \' \\ \n \r \t \uXXXX, found "\")"},
      {R"(label == "\u12g4")", R"(column 11: expected four hexadecimal digits after \u, found "\u12g4")"},
      {R"(label == "\u12)", R"(column 11: expected four hexadecimal digits after \u, found "\u12")"},
      {R"(label == "\uD83D")", R"(column 11: expected whole characters, found half a surrogate pair in "\uD83D")"},
      {R"(label == "\uDC4D\uD83D")",
       R"(column 11: expected whole characters, found half a surrogate pair in "\uDC4D\uD83D")"},
  };
  for (const Case& c : cases) {
    expectFault(c.format, c.fault);
  }
}

TEST(NSPredicate, NumberOfArgumentsMustBeThatOfThePlaceholders) {
  expectFault("label == %@", "column 10: expected an argument for every %@, found 0");
  expectFault("a == %@ OR b ==  %@ ", "column 18: expected an argument for every %@, found 1", {"x"});
  expectFault("label == '%@'", "column 14: expected as many %@ as arguments (1), found 0", {"x"});
  expectFault("label == %@ ", "column 13: expected as many %@ as arguments (3), found 1", {"x", true, "y"});
}

TEST(NSPredicate, NestingHasALimit) {
  EXPECT_EQ(NSPredicate(repeated("(", 200) + "a == b" + repeated(")", 200)).predicateFormat(), "a == b");
  EXPECT_EQ(NSPredicate(repeated("!", 200) + "a == b").predicateFormat(), repeated("NOT ", 200) + "a == b");
  EXPECT_EQ(compound(NSPredicate(repeated("(a == b) AND NOT a == b AND ", 300) + "a == b")).parts.size(), 601U)
      << "what stands side by side is not nested";

  const std::string fault = "expected no more than 200 nested parentheses and NOTs, found one more";
  expectFault(repeated("(", 201) + "a == b" + repeated(")", 201), "column 201: " + fault);
  expectFault(repeated("NOT ", 100000) + "a == b", "column 801: " + fault);
  expectFault(repeated("!(", 100000), "column 201: " + fault);
}

TEST(NSCompoundPredicate, MakesPredicatesOfPredicates) {
  const NSPredicate a("a == x");
  const NSPredicate b("b == y OR c == z");
  const NSPredicate both = NSCompoundPredicate::andPredicate({a, b});
  EXPECT_EQ(both.predicateFormat(), "a == x AND (b == y OR c == z)");
  EXPECT_EQ(NSCompoundPredicate::orPredicate({a, b}).predicateFormat(), "a == x OR (b == y OR c == z)");
  EXPECT_EQ(NSCompoundPredicate::orPredicate({both, a}).predicateFormat(), "a == x AND (b == y OR c == z) OR a == x");
  EXPECT_EQ(NSCompoundPredicate::andPredicate({both, a}).predicateFormat(),
            "(a == x AND (b == y OR c == z)) AND a == x");
  EXPECT_EQ(NSCompoundPredicate::notPredicate(a).predicateFormat(), "NOT a == x");
  EXPECT_EQ(NSCompoundPredicate::notPredicate(b).predicateFormat(), "NOT (b == y OR c == z)");
  EXPECT_EQ(&compound(both).parts[1].node(), &b.node());
}

TEST(NSPredicate, KeyPaths) {
  for (const char* const text :
       {"a", "_", "label", "A_1", "a.b", "shop.basket_1.x", "inner", "nor", "Trueish", "a.in"}) {
    EXPECT_TRUE(NSPredicate::isKeyPath(text)) << text;
    EXPECT_EQ(std::get<NSPredicate::KeyPath>(comparison(NSPredicate(std::string(text) + " == 'x'")).left).name, text);
  }
  for (const char* const text :
       {"",    ".",    "a.",    ".a",       "a..b",       "1",        "1a",      "a.1",           "a-b",
        "a b", "ä",    "in",    "IN",       "And",        "or",       "not",     "like",          "yes",
        "NO",  "true", "False", "contains", "beginsWith", "ENDSWITH", "matches", "TRUEPREDICATE", "falsepredicate",
        "0"}) {
    EXPECT_FALSE(NSPredicate::isKeyPath(text)) << text;
  }
}

TEST(NSCompoundPredicate, JunctionsOfNoPartOrOneArePrintedWithoutAnOperator) {
  const NSPredicate a("a == x");
  const NSPredicate b("b == y OR c == z");
  const NSPredicate all = NSCompoundPredicate::andPredicate({});
  const NSPredicate none = NSCompoundPredicate::orPredicate({});
  EXPECT_EQ(all.predicateFormat(), "TRUEPREDICATE");
  EXPECT_EQ(none.predicateFormat(), "FALSEPREDICATE");
  EXPECT_TRUE(isSame(NSPredicate("TRUEPREDICATE"), all));
  EXPECT_TRUE(isSame(NSPredicate("FALSEPREDICATE"), none));
  EXPECT_EQ(NSCompoundPredicate::notPredicate(all).predicateFormat(), "NOT TRUEPREDICATE");
  EXPECT_EQ(NSCompoundPredicate::andPredicate({a, none}).predicateFormat(), "a == x AND FALSEPREDICATE");

  const NSPredicate single = NSCompoundPredicate::andPredicate({NSCompoundPredicate::orPredicate({b})});
  EXPECT_EQ(single.predicateFormat(), "b == y OR c == z");
  EXPECT_EQ(NSCompoundPredicate::andPredicate({a, single}).predicateFormat(), "a == x AND (b == y OR c == z)");
  EXPECT_EQ(NSCompoundPredicate::notPredicate(single).predicateFormat(), "NOT (b == y OR c == z)");
  EXPECT_EQ(NSCompoundPredicate::notPredicate(NSCompoundPredicate::andPredicate({a})).predicateFormat(), "NOT a == x");
}

}  // namespace
}  // namespace quobrak
