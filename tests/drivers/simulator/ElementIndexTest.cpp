#include "drivers/simulator/ElementIndex.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstddef>
#include <initializer_list>
#include <memory>
#include <string>
#include <vector>

#include "drivers/simulator/PageSource.h"

namespace quobrak::simulator {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

constexpr const char* PAGE = R"(
<Application label="App">
  <Other identifier="outer" selected="true">
    <Other identifier="inner"><Button identifier="save" label="Save" selected="true"/></Other>
    <Button identifier="cancel" label="ABBRUCH" enabled="false"/>
  </Other>
  <TextField identifier="field" value="Ada" placeholderValue="Name"/>
</Application>)";

class ElementIndexTest : public ::testing::Test {
 protected:
  std::vector<std::string> identifiers(const PlaceSet& places) const {
    std::vector<std::string> found;
    places.forEach([&](std::size_t place) { found.push_back(index_.element(place).identifier); });
    return found;
  }

  std::vector<std::string> descendants(std::initializer_list<std::size_t> places, ElementType type) const {
    PlaceSet elements = index_.noPlace();
    for (const std::size_t place : places) {
      elements.insert(place);
    }
    return identifiers(index_.descendants(elements, type));
  }

  const std::unique_ptr<Element> page_ = readPageSource(PAGE, {100, 200});
  const ElementIndex index_{*page_};
};

TEST_F(ElementIndexTest, ElementsComeInDocumentOrderAfterTheRoot) {
  ASSERT_EQ(index_.size(), 6);
  EXPECT_EQ(&index_.element(0), page_.get());
  EXPECT_THAT(descendants({0}, ElementType::any), ElementsAre("outer", "inner", "save", "cancel", "field"));
  EXPECT_THAT(descendants({0}, ElementType::button), ElementsAre("save", "cancel"));
  EXPECT_THAT(descendants({0}, ElementType::application), IsEmpty());
}

TEST_F(ElementIndexTest, DescendantsOfSeveralElements) {
  EXPECT_THAT(descendants({1, 2}, ElementType::any), ElementsAre("inner", "save", "cancel"));
  EXPECT_THAT(descendants({2, 5}, ElementType::any), ElementsAre("save"));
  EXPECT_THAT(descendants({1, 2, 3}, ElementType::other), ElementsAre("inner"));
  EXPECT_THAT(descendants({3, 4, 5}, ElementType::any), IsEmpty());
  EXPECT_THAT(descendants({}, ElementType::any), IsEmpty());
}

TEST_F(ElementIndexTest, TruthValues) {
  EXPECT_THAT(identifiers(index_.enabled()), ElementsAre("", "outer", "inner", "save", "field"));
  EXPECT_THAT(identifiers(index_.selected()), ElementsAre("outer", "save"));
}

TEST_F(ElementIndexTest, TextsOfEachAttribute) {
  const TextColumn& labels = index_.texts(TextAttribute::label, TextForm::plain);
  const TextColumn& placeholders = index_.texts(TextAttribute::placeholder, TextForm::plain);
  ASSERT_EQ(labels.size(), index_.size());
  EXPECT_EQ(labels.text(4), "ABBRUCH");
  EXPECT_EQ(index_.texts(TextAttribute::label, TextForm::folded).text(4), "abbruch");
  EXPECT_FALSE(labels.isMissing(5));
  EXPECT_EQ(index_.texts(TextAttribute::identifier, TextForm::plain).text(5), "field");
  EXPECT_EQ(index_.texts(TextAttribute::value, TextForm::plain).text(5), "Ada");
  EXPECT_EQ(placeholders.text(5), "Name");
  EXPECT_TRUE(placeholders.isMissing(4));
  EXPECT_TRUE(index_.texts(TextAttribute::value, TextForm::folded).isMissing(0));
}

TEST_F(ElementIndexTest, OfAPartOfATree) {
  const Element& outer = *page_->children().front();
  const ElementIndex part(outer);
  ASSERT_EQ(part.size(), 4);
  EXPECT_EQ(&part.element(0), &outer);
  EXPECT_EQ(part.element(3).identifier, "cancel");
}

}  // namespace
}  // namespace quobrak::simulator
