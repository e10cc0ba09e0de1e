#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <fstream>
#include <iterator>
#include <map>
#include <regex>
#include <string>

#include "platform/foundation/JSON.h"

namespace quobrak {
namespace {

using Values = std::map<std::string, std::string>;

std::string textOf(const std::string& path) {
  std::ifstream file(QUOBRAK_SOURCE_FOLDER "/" + path);
  return {std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
}

/// The values in the page's table, and what it says they are at first.
Values valuesOfPage() {
  const std::string page = textOf("docs/built-in-phone.md");
  const std::regex row("\n\\| (`[a-z]+\\.\\w+`(?:, `[a-z]+\\.\\w+`)*) \\|[^\n]*\\| (?:`([^`\n]+)`|empty) \\|");
  const std::regex name("`([^`]+)`");
  Values values;
  for (std::sregex_iterator found(page.begin(), page.end(), row); found != std::sregex_iterator(); ++found) {
    const std::string names = (*found)[1];
    for (std::sregex_iterator one(names.begin(), names.end(), name); one != std::sregex_iterator(); ++one) {
      values.emplace((*one)[1], (*found)[2]);
    }
  }
  return values;
}

Values valuesOfPhone() {
  const JSONValue phone = JSONDecoder::decode(textOf("drivers/simulator/builtin/phone.json"));
  Values values;
  for (const auto& [name, text] : JSONReader(phone).member("values").members()) {
    values.emplace(name, text.text());
  }
  return values;
}

TEST(BuiltInPhonePage, NamesTheValuesThatThePhoneBeginsWith) {
  EXPECT_THAT(valuesOfPage(), testing::ContainerEq(valuesOfPhone()));
}

}  // namespace
}  // namespace quobrak
